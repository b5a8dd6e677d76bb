#include "RegularFile.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

namespace nookle {

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
    FileDescriptor descriptor(::memfd_create("image", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    if (!descriptor.isOpen())
        return std::nullopt;
    // Written at a place of its own, so that reading begins at the start.
    const auto size = static_cast<size_t>(content.size());
    const int seals = F_SEAL_SEAL | F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE;
    const bool isWritten = ::pwrite(descriptor.get(), content.constData(), size, 0) == content.size()
        && ::fcntl(descriptor.get(), F_ADD_SEALS, seals) == 0;
    return isWritten ? std::optional(RegularFile{ std::move(descriptor), 0, content.size() }) : std::nullopt;
}

} // namespace nookle
