#include "LinuxFileReferences.h"

#include "FileReference.h"
#include "FileUrl.h"
#include "FolderEntries.h"
#include "TrashFolders.h"

#include <sys/stat.h>

#include <utility>

namespace nookle {

namespace {

/// Whether something stands at `path`; a link that leads nowhere does not.
[[nodiscard]] bool exists(const QByteArray& path)
{
    struct stat status {};
    return ::stat(path.constData(), &status) == 0;
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
    const QByteArray path = standardizedPath(url);
    if (path.isEmpty() || !exists(path))
        return std::nullopt;
    FileDescriptor descriptor = openInPlace(path);
    const auto identity = FileIdentity::of(descriptor);
    if (!identity)
        return std::nullopt;
    const QByteArray bytes = FileReference{ path, *identity }.encode();
    m_followed.follow(bytes, std::move(descriptor));
    return bytes;
}

std::optional<ResolvedFile> LinuxFileReferences::resolve(const QByteArray& reference)
{
    const auto decoded = FileReference::decode(reference);
    if (!decoded)
        return std::nullopt;
    if (exists(decoded->path)) {
        FileDescriptor descriptor = openInPlace(decoded->path);
        const auto identity = FileIdentity::of(descriptor);
        const bool isSame = identity && identity->matches(decoded->identity);
        if (isSame)
            m_followed.follow(reference, std::move(descriptor));
        return ResolvedFile{ fileUrl(decoded->path), !isSame };
    }
    if (const auto path = newPath(reference, *decoded))
        return exists(*path) ? std::optional(ResolvedFile{ fileUrl(*path), true }) : std::nullopt;
    m_search.want(reference, decoded->identity);
    return std::nullopt;
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
