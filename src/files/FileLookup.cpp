#include "FileLookup.h"

#include "FilePlaces.h"
#include "FileReference.h"
#include "FolderEntries.h"
#include "TrashFolders.h"

#include <sys/stat.h>

#include <cerrno>
#include <utility>

namespace nookle {

std::optional<StandingFile> FileLookup::at(const QByteArray& path) const
{
    StandingFile file{ openInPlace(path), {} };
    const bool isShortOfDescriptors = !file.descriptor.isOpen() && (errno == EMFILE || errno == ENFILE);
    file.identity = isShortOfDescriptors ? FileIdentity::withoutHandle(path) : FileIdentity::of(file.descriptor);
    // A file that could not be opened may still exist.
    const bool isNoLink = file.identity && file.identity->kind != S_IFLNK;
    return isNoLink || exists(path) ? std::optional(std::move(file)) : std::nullopt;
}

bool FileLookup::exists(const QByteArray& path) const
{
    struct stat status {};
    return !m_places.mayLookAt(path, FilePlaces::Links::follow) || ::stat(path.constData(), &status) == 0;
}

std::optional<QByteArray> FileLookup::newPath(const FileReference& reference) const
{
    if (auto path = findIn(parentFolder(reference.path), reference.identity))
        return path;
    const bool mayAskDataHome = m_places.mayLookAt(m_dataHome, FilePlaces::Links::follow);
    for (const QByteArray& folder : trashFolders(reference.path, mayAskDataHome ? m_dataHome : QByteArray())) {
        if (auto path = findIn(folder, reference.identity))
            return path;
    }
    return std::nullopt;
}

std::optional<QByteArray> FileLookup::findIn(const QByteArray& folder, const FileIdentity& identity) const
{
    if (!m_places.mayLookAt(folder, FilePlaces::Links::follow))
        return std::nullopt;
    const auto entries = FolderEntries::tryOpen(folder, FolderEntries::Links::follow);
    while (const dirent* entry = entries ? entries->next() : nullptr) {
        if (entry->d_ino != identity.inode)
            continue;
        const QByteArray path = entryPath(folder, entry->d_name);
        // A folder's entry does not show whether another file system is mounted on it.
        if (!m_places.mayLookAt(path, FilePlaces::Links::refuse))
            continue;
        const auto candidate = FileIdentity::of(path);
        if (candidate && candidate->matches(identity))
            return path;
    }
    return std::nullopt;
}

} // namespace nookle
