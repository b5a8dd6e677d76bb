#include "LinuxFileReferences.h"

#include "FileReference.h"
#include "FileUrl.h"
#include "FolderEntries.h"
#include "TrashFolders.h"

#include <sys/stat.h>

#include <algorithm>
#include <functional>
#include <future>
#include <thread>
#include <utility>
#include <vector>

namespace nookle {

namespace {

/// Whether something stands at `path`; a link that leads nowhere does not.
[[nodiscard]] bool exists(const QByteArray& path)
{
    struct stat status {};
    return ::stat(path.constData(), &status) == 0;
}

/// The same for a path whose identity has been asked for; one that could not be opened may be there all the same.
[[nodiscard]] bool exists(const QByteArray& path, const std::optional<FileIdentity>& identity)
{
    const bool isNoLink = identity && identity->kind != S_IFLNK;
    return isNoLink || exists(path);
}

/// Whether the file is certainly where it was. Tells little about links and where files have no time of birth, but
/// needs nothing opened.
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

/// May be called on any thread.
[[nodiscard]] std::optional<NewReference> newReference(const QUrl& url)
{
    const QByteArray path = standardizedPath(url);
    if (path.isEmpty())
        return std::nullopt;
    FileDescriptor descriptor = openInPlace(path);
    const auto identity = FileIdentity::of(descriptor);
    if (!identity || !exists(path, identity))
        return std::nullopt;
    return NewReference{ path, std::move(descriptor), FileReference{ path, *identity }.encode() };
}

/// Does the work for each index below `count`, on several threads where that is worth it, and waits for its end.
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

[[nodiscard]] std::optional<QByteArray> findInTrash(const FileReference& reference, const QByteArray& dataHome)
{
    for (const QByteArray& folder : trashFolders(reference.path, dataHome)) {
        if (auto path = findInFolder(folder, reference.identity))
            return path;
    }
    return std::nullopt;
}

} // namespace

LinuxFileReferences::LinuxFileReferences(const QByteArray& home, QByteArray dataHome, MainQueue& queue,
                                         LostFileSearch::Clock now)
    : m_dataHome(std::move(dataHome))
    , m_followed(home)
    , m_search(home, queue, std::move(now))
{
    m_search.onFound = [this] {
        if (onFilesFound)
            onFilesFound();
    };
}

LinuxFileReferences::~LinuxFileReferences() = default;

std::optional<QByteArray> LinuxFileReferences::make(const QUrl& url)
{
    return makeAll({ url }).constFirst();
}

QList<std::optional<QByteArray>> LinuxFileReferences::makeAll(const QList<QUrl>& urls)
{
    std::vector<std::optional<NewReference>> made(static_cast<std::size_t>(urls.size()));
    inParallel(made.size(), [&, room = m_followed.room()](std::size_t index) {
        made[index] = newReference(urls[static_cast<qsizetype>(index)]);
        // Far more files can be added at once than descriptors may be open.
        if (made[index] && index >= room)
            made[index]->descriptor = FileDescriptor();
    });
    QList<std::optional<QByteArray>> references;
    references.reserve(urls.size());
    for (std::optional<NewReference>& each : made) {
        if (each)
            m_followed.follow(each->bytes, each->path, std::move(each->descriptor));
        references.append(each ? std::optional(each->bytes) : std::nullopt);
    }
    return references;
}

std::optional<ResolvedFile> LinuxFileReferences::resolve(const QByteArray& reference)
{
    if (const auto path = m_followed.pathInPlace(reference))
        return ResolvedFile{ fileUrl(*path), false };
    if (const auto file = m_followed.room() == 0 ? inPlace(reference) : std::nullopt)
        return file;
    const auto decoded = FileReference::decode(reference);
    if (!decoded)
        return std::nullopt;
    FileDescriptor descriptor = openInPlace(decoded->path);
    const auto identity = FileIdentity::of(descriptor);
    if (exists(decoded->path, identity)) {
        const bool isSame = identity && identity->matches(decoded->identity);
        if (isSame)
            m_followed.follow(reference, decoded->path, std::move(descriptor));
        return ResolvedFile{ fileUrl(decoded->path), !isSame };
    }
    if (const auto path = newPath(reference, *decoded))
        return exists(*path) ? std::optional(ResolvedFile{ fileUrl(*path), true }) : std::nullopt;
    m_search.want(reference, decoded->identity);
    return std::nullopt;
}

std::vector<std::optional<ResolvedFile>> LinuxFileReferences::resolveAll(const std::vector<QByteArray>& references)
{
    std::vector<std::optional<ResolvedFile>> files(references.size());
    inParallel(files.size(), [&, room = m_followed.room()](std::size_t index) {
        // What can still be followed needs more than a look.
        if (index >= room)
            files[index] = inPlace(references[index]);
    });
    for (std::size_t index = 0; index < files.size(); ++index) {
        if (!files[index])
            files[index] = resolve(references[index]);
    }
    return files;
}

std::optional<ResolvedFile> LinuxFileReferences::inPlace(const QByteArray& reference) const
{
    if (const auto path = m_followed.pathInPlace(reference))
        return ResolvedFile{ fileUrl(*path), false };
    const auto decoded = FileReference::decode(reference);
    return decoded && isInPlace(*decoded) ? std::optional(ResolvedFile{ fileUrl(decoded->path), false }) : std::nullopt;
}

void LinuxFileReferences::release(const QByteArray& reference)
{
    m_followed.release(reference);
    m_search.forget(reference);
}

std::optional<QByteArray> LinuxFileReferences::newPath(const QByteArray& bytes, const FileReference& reference)
{
    if (auto path = m_followed.path(bytes))
        return path;
    if (auto path = findInFolder(parentFolder(reference.path), reference.identity))
        return path;
    if (auto path = findInTrash(reference, m_dataHome))
        return path;
    return foundPath(bytes, reference.identity);
}

std::optional<QByteArray> LinuxFileReferences::foundPath(const QByteArray& bytes, const FileIdentity& identity) const
{
    const auto path = m_search.found(bytes);
    const auto present = path ? FileIdentity::of(*path) : std::nullopt;
    return present && present->matches(identity) ? path : std::nullopt;
}

} // namespace nookle
