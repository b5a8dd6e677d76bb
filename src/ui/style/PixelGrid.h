#pragma once

#include <QPointF>
#include <QRectF>

class QPainter;

namespace nookle {

/// The pixels under a painter whose points may be larger than pixels and may begin between them. What lies on whole
/// pixels has sharp edges. For painters that move and enlarge, but do not turn.
class PixelGrid final {
public:
    explicit PixelGrid(const QPainter& painter);

    /// The number of pixels a point.
    [[nodiscard]] double scale() const { return m_scale; }

    [[nodiscard]] QPointF toPixels(const QPointF& point) const { return point * m_scale + m_origin; }
    [[nodiscard]] QPointF toPoints(const QPointF& pixels) const { return (pixels - m_origin) / m_scale; }

    /// The rectangle in points that is closest to `rect` and consists of whole pixels.
    [[nodiscard]] QRectF aligned(const QRectF& rect) const;

private:
    double m_scale;
    /// Where the painter's origin lies, in pixels.
    QPointF m_origin;
};

} // namespace nookle
