#pragma once

#include "PixelGrid.h"

#include <QPainterPath>
#include <QPointF>
#include <QRectF>

namespace nookle {

/// Brings line drawings from a square canvas onto the pixels of a painter, so that their straight lines are sharp.
class PixelFitting final {
public:
    /// A canvas of `canvasSize` units a side fills `box`, which is in points. Its lines are `strokeWidth` units wide.
    PixelFitting(const PixelGrid& grid, double canvasSize, double strokeWidth, const QRectF& box);

    /// The width of the lines in points: whole pixels, at least one.
    [[nodiscard]] double stroke() const { return m_stroke / m_grid.scale(); }

    /// The path in points. The ends of its lines lie where lines of this width cover whole pixels. Its curves follow.
    [[nodiscard]] QPainterPath fitted(QPainterPath path) const;

private:
    [[nodiscard]] QPointF centerOnPixels(const QPointF& center) const;
    [[nodiscard]] QPointF fromCenter(const QPointF& point) const;
    [[nodiscard]] QPointF correction(const QPointF& point) const;
    void move(QPainterPath& path, int index, const QPointF& correction) const;

    PixelGrid m_grid;
    double m_canvasSize;
    /// The number of pixels to a unit of the canvas.
    double m_scale;
    /// The width of the lines in pixels.
    int m_stroke;
    /// The middle of the canvas in pixels.
    QPointF m_center;
};

} // namespace nookle
