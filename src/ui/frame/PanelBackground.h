#pragma once

#include "Compositing.h"

#include <QRectF>

class QLineF;
class QPainter;
class QPalette;

namespace nookle {

/// The radius of the panel's two left corners, in points.
inline constexpr double panelCornerRadius = 12;

/// Paints the background of the panel. Its left corners are round. The right ones are square, because they touch the
/// edge of the screen.
void paintPanelBackground(QPainter& painter, const QRectF& panel, const QPalette& palette, Backdrop backdrop);

/// Covers what was painted on the background, wholly at the start of `direction` and less and less on its way. A
/// `strength` below 1 covers less. Beyond the end of `direction` nothing is covered.
void paintFade(QPainter& painter, const QRectF& panel, const QLineF& direction, double strength,
               const QPalette& palette, Backdrop backdrop);

/// Paints a thin line along the inside of that shape, except at the edge of the screen.
void paintPanelOutline(QPainter& painter, const QRectF& panel, const QPalette& palette);

/// Paints a line along the inside of that shape, which shows that a drop is accepted.
void paintDropTarget(QPainter& painter, const QRectF& panel, const QPalette& palette);

} // namespace nookle
