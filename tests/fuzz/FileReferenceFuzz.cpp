#include "FileReference.h"

#include <cstddef>
#include <cstdint>

using namespace nookle;

/// Whatever can be read can be written, and reads back as the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto reference = FileReference::decode(bytes);
    if (reference && FileReference::decode(reference->encode()) != reference)
        __builtin_trap();
    return 0;
}
