#include "UsableArea.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace nookle {

namespace {

/// The toolkit knows a display in whole points. At a scale that its pixels do not fit, its edge is off by this at most.
inline constexpr int largestRounding = 2;

[[nodiscard]] bool overlaps(int start, int end, int low, int high)
{
    return start <= high && end >= low;
}

[[nodiscard]] bool liesWithin(int position, int low, int high)
{
    return position > low && position < high;
}

} // namespace

Strut Strut::fromNumbers(const std::vector<std::uint32_t>& numbers, const QSize& desktop)
{
    if (numbers.size() != 4 && numbers.size() != 12)
        return {};
    std::array<int, 12> values{};
    std::transform(numbers.begin(), numbers.end(), values.begin(), [](std::uint32_t number) {
        constexpr std::uint32_t farthest = 1U << 24U;
        return static_cast<int>(std::min(number, farthest));
    });
    Strut strut{ values[0], values[1], values[2], values[3], values[4],  values[5],
                 values[6], values[7], values[8], values[9], values[10], values[11] };
    if (numbers.size() == 4) {
        strut.leftEnd = strut.rightEnd = desktop.height() - 1;
        strut.topEnd = strut.bottomEnd = desktop.width() - 1;
    }
    return strut;
}

std::vector<std::uint32_t> rightStrut(const QRect& panel, const QRect& display, const QSize& desktop)
{
    if (std::abs(display.left() + display.width() - desktop.width()) > largestRounding)
        return {};
    const auto width = static_cast<std::uint32_t>(desktop.width() - panel.left());
    const auto start = static_cast<std::uint32_t>(display.top());
    const auto end = static_cast<std::uint32_t>(display.bottom());
    // Left, right, top and bottom, then the beginning and the end of each.
    return { 0, width, 0, 0, 0, 0, start, end, 0, 0, 0, 0 };
}

QRect usableArea(const QRect& display, const QSize& desktop, const std::vector<Strut>& struts)
{
    int left = display.left();
    int top = display.top();
    int right = display.left() + display.width();
    int bottom = display.top() + display.height();
    const int displayRight = right;
    const int displayBottom = bottom;

    for (const Strut& strut : struts) {
        const bool alongLeft = overlaps(strut.leftStart, strut.leftEnd, display.top(), display.bottom());
        if (alongLeft && liesWithin(strut.left, display.left(), displayRight))
            left = std::max(left, strut.left);
        const bool alongRight = overlaps(strut.rightStart, strut.rightEnd, display.top(), display.bottom());
        const int rightEdge = desktop.width() - strut.right;
        if (strut.right > 0 && alongRight && liesWithin(rightEdge, display.left(), displayRight))
            right = std::min(right, rightEdge);
        const bool alongTop = overlaps(strut.topStart, strut.topEnd, display.left(), display.right());
        if (alongTop && liesWithin(strut.top, display.top(), displayBottom))
            top = std::max(top, strut.top);
        const bool alongBottom = overlaps(strut.bottomStart, strut.bottomEnd, display.left(), display.right());
        const int bottomEdge = desktop.height() - strut.bottom;
        if (strut.bottom > 0 && alongBottom && liesWithin(bottomEdge, display.top(), displayBottom))
            bottom = std::min(bottom, bottomEdge);
    }
    if (right <= left || bottom <= top)
        return display;
    return { left, top, right - left, bottom - top };
}

} // namespace nookle
