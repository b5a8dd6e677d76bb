#pragma once

#include "Compositing.h"

#include <QRectF>

class QPainter;
class QPalette;

namespace nookle {

/// The radius of the panel's two left corners, in points.
inline constexpr double panelCornerRadius = 12;

/// Paints the background of the panel. Its left corners are round. The right ones are square, because they touch the
/// edge of the screen.
void paintPanelBackground(QPainter& painter, const QRectF& panel, const QPalette& palette, Backdrop backdrop);

/// Paints a thin line along the inside of that shape, except at the edge of the screen.
void paintPanelOutline(QPainter& painter, const QRectF& panel, const QPalette& palette);

/// Paints a line along the inside of that shape, which shows that a drop is accepted.
void paintDropTarget(QPainter& painter, const QRectF& panel, const QPalette& palette);

} // namespace nookle
