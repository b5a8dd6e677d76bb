#include "PixelFitting.h"

#include <algorithm>
#include <cmath>

namespace nookle {

PixelFitting::PixelFitting(const PixelGrid& grid, double canvasSize, double strokeWidth, const QRectF& box)
    : m_grid(grid)
    , m_canvasSize(canvasSize)
    , m_scale(std::min(box.width(), box.height()) / canvasSize * grid.scale())
    , m_stroke(std::max(1, qRound(strokeWidth * m_scale)))
    , m_center(centerOnPixels(grid.toPixels(box.center())))
{
}

QPainterPath PixelFitting::fitted(QPainterPath path) const
{
    QPointF last;
    for (int index = 0; index < path.elementCount(); ++index) {
        if (!path.elementAt(index).isCurveTo()) {
            last = correction(path.elementAt(index));
            move(path, index, last);
            continue;
        }
        // Two control points and the end. Each control point moves like the end that it belongs to.
        const QPointF next = correction(path.elementAt(index + 2));
        move(path, index, last);
        move(path, ++index, next);
        move(path, ++index, next);
        last = next;
    }
    return path;
}

// A line of an odd number of pixels is sharp when its middle lies in the middle of a pixel.
QPointF PixelFitting::centerOnPixels(const QPointF& center) const
{
    if (m_stroke % 2 == 0)
        return center.toPoint();
    return { std::floor(center.x()) + 0.5, std::floor(center.y()) + 0.5 };
}

/// A point of the canvas in pixels from the middle.
QPointF PixelFitting::fromCenter(const QPointF& point) const
{
    return (point - QPointF(m_canvasSize, m_canvasSize) / 2) * m_scale;
}

/// How many pixels a point of the canvas must move.
QPointF PixelFitting::correction(const QPointF& point) const
{
    const QPointF exact = fromCenter(point);
    return QPointF(std::round(exact.x()), std::round(exact.y())) - exact;
}

void PixelFitting::move(QPainterPath& path, int index, const QPointF& correction) const
{
    const QPointF place = m_grid.toPoints(m_center + fromCenter(path.elementAt(index)) + correction);
    path.setElementPositionAt(index, place.x(), place.y());
}

} // namespace nookle
