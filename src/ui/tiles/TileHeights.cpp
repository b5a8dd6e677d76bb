#include "TileHeights.h"

#include "TileMetrics.h"

namespace nookle {

TileHeights::TileHeights(const TileMetrics& metrics)
    : m_metrics(metrics)
{
}

int TileHeights::height(const ShelfItem& item, bool isUnavailable, int width)
{
    Measured& known = m_measured[item.id];
    const QString name = item.shownName();
    if (known.height > 0 && known.width == width && known.isUnavailable == isUnavailable && known.name == name)
        return known.height;
    ++m_measurements;
    known = Measured{ name, isUnavailable, width, m_metrics.height(name, isUnavailable, width) };
    return known.height;
}

void TileHeights::trim(qsizetype itemCount)
{
    constexpr qsizetype worthwhile = 1000;
    if (m_measured.size() > 2 * itemCount + worthwhile)
        m_measured.clear();
}

} // namespace nookle
