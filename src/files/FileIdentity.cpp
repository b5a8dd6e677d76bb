#include "FileIdentity.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>

#include <array>
#include <cstddef>
#include <new>

namespace nookle {

namespace {

[[nodiscard]] qint64 nanoseconds(const statx_timestamp& time)
{
    // Unsigned, because a damaged file system may hold any number of seconds.
    return static_cast<qint64>(static_cast<quint64>(time.tv_sec) * 1'000'000'000U + time.tv_nsec);
}

[[nodiscard]] std::optional<FileIdentity> statusOf(int folder, const char* path, int flags)
{
    struct statx status {};
    const unsigned wanted = STATX_TYPE | STATX_INO | STATX_SIZE | STATX_MTIME | STATX_BTIME;
    if (::statx(folder, path, flags | AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, wanted, &status) != 0)
        return std::nullopt;
    FileIdentity identity;
    identity.inode = status.stx_ino;
    identity.kind = status.stx_mode & S_IFMT;
    if ((status.stx_mask & STATX_BTIME) != 0)
        identity.birthTime = nanoseconds(status.stx_btime);
    identity.size = status.stx_size;
    identity.modificationTime = nanoseconds(status.stx_mtime);
    return identity;
}

[[nodiscard]] bool hasLastingHandles(const FileDescriptor& descriptor)
{
    struct statfs fileSystem {};
    // FUSE file systems assign new numbers at every mount, so an old handle may belong to another file.
    return ::fstatfs(descriptor.get(), &fileSystem) == 0 && fileSystem.f_type != FUSE_SUPER_MAGIC;
}

void addHandle(FileIdentity& identity, const FileDescriptor& descriptor)
{
    if (!hasLastingHandles(descriptor))
        return;
    alignas(file_handle) std::array<std::byte, sizeof(file_handle) + MAX_HANDLE_SZ> buffer{};
    auto* handle = new (buffer.data()) file_handle;
    handle->handle_bytes = MAX_HANDLE_SZ;
    int mountId = 0;
    if (::name_to_handle_at(descriptor.get(), "", handle, &mountId, AT_EMPTY_PATH) != 0)
        return;
    identity.handleType = handle->handle_type;
    identity.handle = QByteArray(reinterpret_cast<const char*>(handle->f_handle), handle->handle_bytes);
}

} // namespace

FileDescriptor openInPlace(const QByteArray& path)
{
    return FileDescriptor(::open(path.constData(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
}

std::optional<FileIdentity> FileIdentity::of(const FileDescriptor& descriptor)
{
    auto identity = descriptor.isOpen() ? statusOf(descriptor.get(), "", AT_EMPTY_PATH) : std::nullopt;
    if (identity)
        addHandle(*identity, descriptor);
    return identity;
}

std::optional<FileIdentity> FileIdentity::of(const QByteArray& path)
{
    return of(openInPlace(path));
}

std::optional<FileIdentity> FileIdentity::withoutHandle(const QByteArray& path)
{
    return statusOf(AT_FDCWD, path.constData(), 0);
}

bool FileIdentity::matches(const FileIdentity& other) const
{
    if (kind != other.kind)
        return false;
    if (!handle.isEmpty() && handleType == other.handleType && handle == other.handle)
        return true;
    if (inode != other.inode || birthTime != other.birthTime)
        return false;
    return birthTime || (size == other.size && modificationTime == other.modificationTime);
}

} // namespace nookle
