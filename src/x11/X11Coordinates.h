#pragma once

#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QRectF>

#include <vector>

namespace nookle {

// The X server counts in pixels, the toolkit in points. In the toolkit's points, the origin of each screen stays in
// pixels, and only the offset within the screen is scaled. These functions do the same.

/// The position in points of a pixel of the root window.
[[nodiscard]] QPointF pointsFromPixels(const QPoint& pixel);

/// A rectangle of pixels in points. The scale is that of the screen with its top left corner.
[[nodiscard]] QRectF pointsFromPixels(const QRect& pixels);

/// A rectangle of points in pixels. It belongs to the display with the full frame `display`, but may lie beyond that
/// display's edges.
[[nodiscard]] QRect pixelsFromPoints(const QRectF& points, const QRectF& display);

/// The place in pixels of a window that is shown, but beyond all displays, whose frames are in points.
[[nodiscard]] QRect pixelBeyond(const std::vector<QRectF>& displays);

} // namespace nookle
