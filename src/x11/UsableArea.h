#pragma once

#include <QRect>
#include <QSize>

#include <cstdint>
#include <vector>

namespace nookle {

/// The space that a panel or dock reserves along the edges of the whole desktop, in pixels (`_NET_WM_STRUT_PARTIAL`).
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

    /// Reads the twelve numbers of `_NET_WM_STRUT_PARTIAL`, or the four of `_NET_WM_STRUT`, which apply to the whole
    /// edge. A list of any other length reserves nothing.
    [[nodiscard]] static Strut fromNumbers(const std::vector<std::uint32_t>& numbers, const QSize& desktop);
};

/// The twelve numbers of `_NET_WM_STRUT_PARTIAL` that reserve the space from the left edge of `panel` to the right edge
/// of its display. Empty if the desktop goes on there: what is reserved is counted from the edge of the whole desktop.
[[nodiscard]] std::vector<std::uint32_t> rightStrut(const QRect& panel, const QRect& display, const QSize& desktop);

/// The part of a display that the struts leave free. A strut counts only for the display in which it ends. A strut that
/// crosses a whole display, because it belongs to another display behind it, takes nothing away from the crossed one.
[[nodiscard]] QRect usableArea(const QRect& display, const QSize& desktop, const std::vector<Strut>& struts);

} // namespace nookle
