#include "TileLayout.h"

#include <algorithm>

namespace nookle {

TileLayout::TileLayout(const std::vector<int>& heights, int margin, int gap)
    : m_margin(margin)
    , m_gap(gap)
{
    m_bottoms.reserve(heights.size());
    for (const int height : heights)
        m_bottoms.push_back((m_bottoms.empty() ? margin : m_bottoms.back() + gap) + height);
}

int TileLayout::top(std::size_t row) const
{
    return row == 0 ? m_margin : m_bottoms[row - 1] + m_gap;
}

int TileLayout::totalHeight() const
{
    return m_bottoms.empty() ? 0 : m_bottoms.back() + m_margin;
}

TileLayout::Range TileLayout::rowsBetween(int upper, int lower) const
{
    const auto first = std::upper_bound(m_bottoms.begin(), m_bottoms.end(), upper);
    Range range;
    range.first = static_cast<std::size_t>(first - m_bottoms.begin());
    range.end = range.first;
    while (range.end < count() && top(range.end) < lower)
        ++range.end;
    return range;
}

} // namespace nookle
