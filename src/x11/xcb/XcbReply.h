#pragma once

#include <cstdlib>
#include <memory>

namespace nookle {

struct XcbFree {
    void operator()(void* memory) const { std::free(memory); }
};

/// A reply, an event or an error from the X server; freed with the pointer.
template <typename Type> using XcbReply = std::unique_ptr<Type, XcbFree>;

template <typename Type> [[nodiscard]] XcbReply<Type> owned(Type* memory)
{
    return XcbReply<Type>(memory);
}

} // namespace nookle
