#include "ShelfIndex.h"

#include <cstddef>
#include <cstdint>

using namespace nookle;

/// Whatever can be read can be written, and reads back as the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto first = ShelfIndex::decode(bytes);
    const ShelfIndex* index = std::get_if<ShelfIndex>(&first);
    if (!index)
        return 0;
    for (const ShelfItem& item : index->items)
        static_cast<void>(item.displayName());
    const auto second = ShelfIndex::decode(index->encode());
    const ShelfIndex* again = std::get_if<ShelfIndex>(&second);
    if (!again || *again != *index)
        __builtin_trap();
    return 0;
}
