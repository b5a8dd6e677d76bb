#include "RegularFile.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace nookle {

namespace {

inline constexpr qsizetype pieceSize = 1 << 18;

[[nodiscard]] FileDescriptor fileInMemory()
{
    return FileDescriptor(::memfd_create("image", MFD_CLOEXEC | MFD_ALLOW_SEALING));
}

// Does not move the file position, so that reading begins at the start.
[[nodiscard]] bool writeAt(const FileDescriptor& file, qint64 place, QByteArrayView bytes)
{
    return ::pwrite(file.get(), bytes.data(), static_cast<size_t>(bytes.size()), place) == bytes.size();
}

[[nodiscard]] bool seal(const FileDescriptor& file)
{
    return ::fcntl(file.get(), F_ADD_SEALS, F_SEAL_SEAL | F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE) == 0;
}

} // namespace

std::optional<RegularFile> RegularFile::open(const QByteArray& path, Links links)
{
    const int flags = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC | (links == Links::refuse ? O_NOFOLLOW : 0);
    FileDescriptor descriptor(::open(path.constData(), flags));
    struct stat status {};
    if (!descriptor.isOpen() || ::fstat(descriptor.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return RegularFile{ std::move(descriptor), status.st_mtim.tv_sec, status.st_size };
}

std::optional<RegularFile> RegularFile::inMemory(const QByteArray& content)
{
    FileDescriptor descriptor = fileInMemory();
    const bool isWritten = descriptor.isOpen() && writeAt(descriptor, 0, content) && seal(descriptor);
    return isWritten ? std::optional(RegularFile{ std::move(descriptor), 0, content.size() }) : std::nullopt;
}

bool RegularFile::isSealed() const
{
    // Only files in memory can have seals.
    const int seals = ::fcntl(descriptor.get(), F_GET_SEALS);
    return seals != -1 && (seals & F_SEAL_WRITE) != 0;
}

std::optional<RegularFile> RegularFile::sealedCopy(qint64 longest, const std::atomic<bool>& isWanted) const
{
    FileDescriptor copy = fileInMemory();
    if (!copy.isOpen() || size > longest)
        return std::nullopt;
    QByteArray piece(pieceSize, Qt::Uninitialized);
    qint64 done = 0;
    while (isWanted) {
        const ssize_t count = ::pread(descriptor.get(), piece.data(), static_cast<size_t>(pieceSize), done);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0 || done + count > longest || !writeAt(copy, done, { piece.constData(), count }))
            return std::nullopt;
        if (count == 0)
            return seal(copy) ? std::optional(RegularFile{ std::move(copy), modificationTime, done }) : std::nullopt;
        done += count;
    }
    return std::nullopt;
}

} // namespace nookle
