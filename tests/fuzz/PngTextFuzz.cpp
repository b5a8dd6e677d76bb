#include "PngText.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include <sys/mman.h>
#include <unistd.h>

using namespace nookle;

/// Whatever a file holds, reading its texts ends, and keys are never empty.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const int file = ::memfd_create("picture", MFD_CLOEXEC);
    if (file < 0 || ::ftruncate(file, 0) != 0 || ::pwrite(file, data, size, 0) != static_cast<ssize_t>(size))
        std::abort();
    const auto texts = readPngText(file);
    if (texts && texts->contains(QByteArray("")))
        __builtin_trap();
    return 0;
}
