#pragma once

#include <QRect>
#include <QSize>

#include <cstdint>
#include <vector>

namespace nookle {

/// The space that a panel or dock reserves along the edges of the whole desktop, in pixels: `_NET_WM_STRUT_PARTIAL`.
struct Strut {
    int left = 0;
    int right = 0;
    int top = 0;
    int bottom = 0;
    int leftStart = 0;
    int leftEnd = 0;
    int rightStart = 0;
    int rightEnd = 0;
    int topStart = 0;
    int topEnd = 0;
    int bottomStart = 0;
    int bottomEnd = 0;

    /// From the twelve numbers of `_NET_WM_STRUT_PARTIAL` or the four of `_NET_WM_STRUT`, which hold along the whole
    /// edge; anything else reserves nothing.
    [[nodiscard]] static Strut fromNumbers(const std::vector<std::uint32_t>& numbers, const QSize& desktop);
};

/// What the struts leave of a display. A strut counts for the display in which it ends: one that covers a display
/// across, because it belongs to another one behind it, takes nothing away.
[[nodiscard]] QRect usableArea(const QRect& display, const QSize& desktop, const std::vector<Strut>& struts);

} // namespace nookle
