#include "FolderEntries.h"

#include "FileDescriptor.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstring>

namespace nookle {

std::unique_ptr<FolderEntries> FolderEntries::tryOpen(const QByteArray& path, Links lastComponent)
{
    const int links = lastComponent == Links::refuse ? O_NOFOLLOW : 0;
    FileDescriptor descriptor(::open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | links));
    DIR* folder = descriptor.isOpen() ? ::fdopendir(descriptor.get()) : nullptr;
    if (folder == nullptr)
        return nullptr;
    // The directory stream owns the descriptor now.
    static_cast<void>(descriptor.release());
    return std::unique_ptr<FolderEntries>(new FolderEntries(folder));
}

const dirent* FolderEntries::next()
{
    const dirent* entry = nullptr;
    do {
        entry = ::readdir(m_folder.get());
    } while (entry != nullptr && (std::strcmp(entry->d_name, ".") == 0 || std::strcmp(entry->d_name, "..") == 0));
    return entry;
}

bool FolderEntries::isFolder(const dirent& entry) const
{
    if (entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_DIR;
    struct stat status {};
    return ::fstatat(::dirfd(m_folder.get()), entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0
        && S_ISDIR(status.st_mode);
}

std::optional<dev_t> FolderEntries::device() const
{
    struct stat status {};
    return ::fstat(::dirfd(m_folder.get()), &status) == 0 ? std::optional(status.st_dev) : std::nullopt;
}

QByteArray entryPath(const QByteArray& folder, const QByteArray& name)
{
    QByteArray path = folder;
    if (!path.endsWith('/'))
        path += '/';
    path += name;
    return path;
}

QByteArray parentFolder(const QByteArray& path)
{
    return path.left(std::max<qsizetype>(1, path.lastIndexOf('/')));
}

} // namespace nookle
