#pragma once

#include "Compositing.h"

#include <QRectF>

class QPainter;
class QPalette;

namespace nookle {

/// Of the two left corners of the panel, in points.
inline constexpr double panelCornerRadius = 12;

/// Paints what lies under the content of the panel: its shape, round at the left and square at the right, where it
/// meets the edge of the screen.
void paintPanelBackground(QPainter& painter, const QRectF& panel, const QPalette& palette, Backdrop backdrop);

/// Paints a line within that shape: a drop is welcome.
void paintDropTarget(QPainter& painter, const QRectF& panel, const QPalette& palette);

} // namespace nookle
