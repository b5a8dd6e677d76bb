#pragma once

#include <QByteArray>

#include <cstdint>
#include <vector>

struct xcb_connection_t;

namespace nookle {

/// The atom of that name; 0 when the connection is broken.
[[nodiscard]] std::uint32_t xcbAtom(xcb_connection_t* connection, const QByteArray& name);

/// A property that is a list of 32-bit numbers; empty when the window does not have it.
[[nodiscard]] std::vector<std::uint32_t> xcbNumbers(xcb_connection_t* connection, std::uint32_t window,
                                                    std::uint32_t property);

} // namespace nookle
