#include "PixelGrid.h"

#include <QPainter>

namespace nookle {

PixelGrid::PixelGrid(const QPainter& painter)
    : m_scale(painter.deviceTransform().m11())
    , m_origin(painter.deviceTransform().map(QPointF()))
{
}

QRectF PixelGrid::aligned(const QRectF& rect) const
{
    // Position and size are rounded apart, so that the size does not depend on the position.
    const QPointF topLeft = toPixels(rect.topLeft()).toPoint();
    const QSizeF size = (rect.size() * m_scale).toSize();
    return { toPoints(topLeft), size / m_scale };
}

} // namespace nookle
