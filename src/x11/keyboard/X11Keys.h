#pragma once

#include <Qt>

#include <cstdint>
#include <optional>

namespace nookle {

/// A key as the X server knows it.
struct X11Key {
    /// The symbol on it.
    std::uint32_t symbol = 0;
    /// Its code on most keyboards, for layouts without this letter or digit; 0 for other keys.
    std::uint8_t place = 0;

    friend bool operator==(const X11Key&, const X11Key&) = default;
};

/// None for keys that no keyboard has in the same place and with the same name.
[[nodiscard]] std::optional<X11Key> x11Key(Qt::Key key);

} // namespace nookle
