#include "DistantFiles.h"

#include "FileLookup.h"
#include "FilePlaces.h"
#include "FileReference.h"
#include "FileUrl.h"
#include "MainQueue.h"
#include "Mounts.h"

#include <algorithm>
#include <utility>

namespace nookle {

namespace {

/// In seconds. The answers to one round of requests arrive in quick succession, so they are reported together.
inline constexpr double collectingTime = 0.1;

} // namespace

DistantFiles::DistantFiles(std::shared_ptr<Mounts> mounts, QByteArray dataHome, MainQueue& queue)
    : m_mounts(std::move(mounts))
    , m_dataHome(std::move(dataHome))
    , m_queue(queue)
    , m_work(queue)
{
}

DistantFiles::~DistantFiles() = default;

std::optional<ResolvedFile> DistantFiles::resolve(const QByteArray& bytes, const FileReference& reference,
                                                  const QByteArray& mountPoint)
{
    Known& known = m_known[bytes];
    if (!known.isAnswered)
        known.answer.file = ResolvedFile{ fileUrl(reference.path), false };
    // A call from within `onChanged` starts no new look at a file that has an answer: otherwise each answer would cause
    // looks at all other files.
    const bool isNews = m_isTelling && known.isAnswered;
    if (!known.isBeingLookedAt && !isNews) {
        known.isBeingLookedAt = true;
        beginLook(bytes, reference, mountPoint);
    }
    return known.answer.file;
}

QByteArray DistantFiles::make(const QByteArray& path) const
{
    const QUrl url = fileUrl(path);
    const auto known = std::find_if(m_known.begin(), m_known.end(), [&url](const auto& entry) {
        const Answer& answer = entry.second.answer;
        return !answer.made.isEmpty() && answer.file && answer.file->url == url;
    });
    return known == m_known.end() ? FileReference{ path, {} }.encode() : known->second.answer.made;
}

// Runs on the thread of the mount.
DistantFiles::Answer DistantFiles::look(Mounts& mounts, const FileReference& reference, const QByteArray& dataHome)
{
    const FilePlaces places(mounts.table(), FilePlaces::Patience::endless);
    if (!places.mayLookAt(reference.path, FilePlaces::Links::refuse))
        return {};
    const FileLookup lookup(places, dataHome);
    std::optional<QByteArray> path = reference.path;
    std::optional<StandingFile> file = lookup.at(*path);
    if (!file) {
        path = lookup.newPath(reference);
        file = path ? lookup.at(*path) : std::nullopt;
    }
    if (!file)
        return {};
    const auto& identity = file->identity;
    if (identity && *path == reference.path && identity->matches(reference.identity))
        return { ResolvedFile{ fileUrl(*path), false }, {} };
    return { ResolvedFile{ fileUrl(*path), true },
             identity ? FileReference{ *path, *identity }.encode() : QByteArray() };
}

void DistantFiles::beginLook(const QByteArray& bytes, const FileReference& reference, const QByteArray& mountPoint)
{
    m_work.run(mountPoint,
               [mounts = m_mounts, reference, dataHome = m_dataHome,
                take = m_lifetime.guarded(
                    [this, bytes](const Answer& answer) { take(bytes, answer); })]() mutable -> MainQueue::Work {
                   return [take, answer = look(*mounts, reference, dataHome)]() mutable { take(answer); };
               });
}

void DistantFiles::take(const QByteArray& bytes, const Answer& answer)
{
    const auto known = m_known.find(bytes);
    if (known == m_known.end())
        return;
    known->second.isBeingLookedAt = false;
    known->second.isAnswered = true;
    if (std::exchange(known->second.answer, answer) != answer && !m_telling)
        m_telling = m_queue.after(collectingTime, [this] { tell(); });
}

void DistantFiles::tell()
{
    m_telling.reset();
    if (!onChanged)
        return;
    m_isTelling = true;
    onChanged();
    m_isTelling = false;
}

} // namespace nookle
