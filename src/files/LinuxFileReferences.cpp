#include "LinuxFileReferences.h"

#include "FileLookup.h"
#include "FilePlaces.h"
#include "FileReference.h"
#include "FileUrl.h"
#include "MainQueue.h"
#include "Mounts.h"

#include <sys/stat.h>

#include <algorithm>
#include <functional>
#include <future>
#include <thread>
#include <utility>
#include <vector>

namespace nookle {

namespace {

/// Whether the file is certainly in its place. Quick, because it opens nothing. Always false for links, and on file
/// systems that record no birth time.
[[nodiscard]] bool isInPlace(const FileReference& reference)
{
    const auto present = FileIdentity::withoutHandle(reference.path);
    return present && present->birthTime && present->kind != S_IFLNK && present->matches(reference.identity);
}

struct NewReference {
    QByteArray path;
    FileDescriptor descriptor;
    QByteArray bytes;
};

/// The result has empty `bytes` for a file that must not be accessed. Any thread.
[[nodiscard]] std::optional<NewReference> newReference(const QUrl& url, const FilePlaces& places,
                                                       const QByteArray& dataHome)
{
    const QByteArray path = standardizedPath(url);
    if (path.isEmpty())
        return std::nullopt;
    if (!places.mayLookAt(path, FilePlaces::Links::refuse))
        return NewReference{ path, FileDescriptor(), {} };
    auto file = FileLookup(places, dataHome).at(path);
    if (!file || !file->identity)
        return std::nullopt;
    return NewReference{ path, std::move(file->descriptor), FileReference{ path, *file->identity }.encode() };
}

/// Calls `work` for each index below `count`, on several threads if there are many, and waits for the end.
void inParallel(std::size_t count, const std::function<void(std::size_t index)>& work)
{
    constexpr std::size_t worthAThread = 1000;
    const std::size_t processors = std::max(1U, std::thread::hardware_concurrency());
    const std::size_t parts = std::clamp<std::size_t>(count / worthAThread, 1, processors);
    const auto doPart = [&](std::size_t part) {
        for (std::size_t index = part * count / parts; index < (part + 1) * count / parts; ++index)
            work(index);
    };
    std::vector<std::future<void>> others;
    for (std::size_t part = 1; part < parts; ++part)
        others.push_back(std::async(doPart, part));
    doPart(0);
    for (const std::future<void>& other : others)
        other.wait();
}

} // namespace

LinuxFileReferences::LinuxFileReferences(const QByteArray& home, const QByteArray& dataHome, MainQueue& queue,
                                         LostFileSearch::Clock now, std::shared_ptr<Mounts> mounts)
    : m_dataHome(dataHome)
    , m_mounts(mounts ? std::move(mounts) : std::make_shared<Mounts>(home))
    , m_distant(m_mounts, dataHome, queue)
    , m_followed(home)
    , m_search(home, m_mounts, queue, std::move(now))
{
    const auto tell = [this] {
        if (onFilesFound)
            onFilesFound();
    };
    m_distant.onChanged = tell;
    m_search.onFound = tell;
}

LinuxFileReferences::~LinuxFileReferences() = default;

std::optional<QByteArray> LinuxFileReferences::make(const QUrl& url)
{
    return makeAll({ url }).constFirst();
}

QList<std::optional<QByteArray>> LinuxFileReferences::makeAll(const QList<QUrl>& urls)
{
    const FilePlaces places(m_mounts->table());
    std::vector<std::optional<NewReference>> made(static_cast<std::size_t>(urls.size()));
    inParallel(made.size(), [&, room = m_followed.room()](std::size_t index) {
        made[index] = newReference(urls[static_cast<qsizetype>(index)], places, m_dataHome);
        // Closes the descriptors that cannot be kept: more files can be added at once than descriptors may be open.
        if (made[index] && index >= room)
            made[index]->descriptor = FileDescriptor();
    });
    QList<std::optional<QByteArray>> references;
    references.reserve(urls.size());
    for (std::optional<NewReference>& each : made) {
        if (each && each->bytes.isEmpty())
            each->bytes = m_distant.make(each->path);
        else if (each)
            m_followed.follow(each->bytes, each->path, std::move(each->descriptor));
        references.append(each ? std::optional(each->bytes) : std::nullopt);
    }
    return references;
}

std::optional<ResolvedFile> LinuxFileReferences::resolve(const QByteArray& reference)
{
    return resolve(reference, FilePlaces(m_mounts->table()));
}

std::optional<ResolvedFile> LinuxFileReferences::resolve(const QByteArray& reference, const FilePlaces& places)
{
    if (const auto path = m_followed.pathInPlace(reference, places))
        return ResolvedFile{ fileUrl(*path), false };
    if (const auto file = m_followed.room() == 0 ? inPlace(reference, places) : std::nullopt)
        return file;
    const auto decoded = FileReference::decode(reference);
    if (!decoded)
        return std::nullopt;
    const FilePlace place = places.placeOf(decoded->path, FilePlaces::Links::refuse);
    switch (place.reach) {
    case FilePlace::Reach::unmounted:
        return std::nullopt;
    case FilePlace::Reach::distant:
        return m_distant.resolve(reference, *decoded, place.distantMount);
    case FilePlace::Reach::here:
        break;
    }
    return lookHere(reference, *decoded, places);
}

std::optional<ResolvedFile> LinuxFileReferences::lookHere(const QByteArray& bytes, const FileReference& reference,
                                                          const FilePlaces& places)
{
    const FileLookup lookup(places, m_dataHome);
    if (auto file = lookup.at(reference.path)) {
        const bool isSame = file->identity && file->identity->matches(reference.identity);
        if (isSame)
            m_followed.follow(bytes, reference.path, std::move(file->descriptor));
        return ResolvedFile{ fileUrl(reference.path), !isSame };
    }
    auto path = m_followed.path(bytes, places);
    if (!path)
        path = lookup.newPath(reference);
    if (!path)
        path = foundPath(bytes, reference.identity, places);
    if (path)
        return lookup.exists(*path) ? std::optional(ResolvedFile{ fileUrl(*path), true }) : std::nullopt;
    if (reference.hasIdentity())
        m_search.want(bytes, reference.identity);
    return std::nullopt;
}

std::vector<std::optional<ResolvedFile>> LinuxFileReferences::resolveAll(const std::vector<QByteArray>& references)
{
    const FilePlaces places(m_mounts->table());
    std::vector<std::optional<ResolvedFile>> files(references.size());
    inParallel(files.size(), [&, room = m_followed.room()](std::size_t index) {
        // The first `room` files can still be followed, so they take the full way below.
        if (index >= room)
            files[index] = inPlace(references[index], places);
    });
    for (std::size_t index = 0; index < files.size(); ++index) {
        if (!files[index])
            files[index] = resolve(references[index], places);
    }
    return files;
}

std::optional<ResolvedFile> LinuxFileReferences::inPlace(const QByteArray& reference, const FilePlaces& places) const
{
    if (const auto path = m_followed.pathInPlace(reference, places))
        return ResolvedFile{ fileUrl(*path), false };
    const auto decoded = FileReference::decode(reference);
    const bool mayLook = decoded && places.mayLookAt(decoded->path, FilePlaces::Links::refuse);
    return mayLook && isInPlace(*decoded) ? std::optional(ResolvedFile{ fileUrl(decoded->path), false }) : std::nullopt;
}

bool LinuxFileReferences::isFolder(const QByteArray& reference) const
{
    const auto decoded = FileReference::decode(reference);
    if (!decoded || decoded->identity.kind != S_IFLNK)
        return decoded && decoded->identity.kind == S_IFDIR;
    struct stat status {};
    return FilePlaces(m_mounts->table()).mayLookAt(decoded->path, FilePlaces::Links::follow)
        && ::stat(decoded->path.constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

void LinuxFileReferences::release(const QByteArray& reference)
{
    m_distant.forget(reference);
    m_followed.release(reference);
    m_search.forget(reference);
}

std::optional<QByteArray> LinuxFileReferences::foundPath(const QByteArray& bytes, const FileIdentity& identity,
                                                         const FilePlaces& places) const
{
    const auto path = m_search.found(bytes);
    const bool mayLook = path && places.mayLookAt(*path, FilePlaces::Links::refuse);
    const auto present = mayLook ? FileIdentity::of(*path) : std::nullopt;
    return present && present->matches(identity) ? path : std::nullopt;
}

} // namespace nookle
