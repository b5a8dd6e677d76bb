#pragma once

#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QRectF>

namespace nookle {

// The X server counts pixels. The toolkit's points keep the origin of each screen in pixels and scale only within the
// screen, and everything here follows it.

/// Where a pixel of the root window stands in points.
[[nodiscard]] QPointF pointsFromPixels(const QPoint& pixel);

/// A rectangle of pixels in points; it lies on the screen of its top left corner.
[[nodiscard]] QRectF pointsFromPixels(const QRect& pixels);

/// The pixels of a rectangle that belongs to the display with the full frame `display`, beyond whose edges it may lie.
[[nodiscard]] QRect pixelsFromPoints(const QRectF& points, const QRectF& display);

} // namespace nookle
