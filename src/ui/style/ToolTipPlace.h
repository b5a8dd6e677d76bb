#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

class QWidget;

namespace nookle {

/// Where a tool tip of that size stands that says something about `described`, a part of the panel at the right edge of
/// a display: left of the panel, at the height of `described`. One that is too wide for the rest of the display stands
/// below `described`, or above it at the bottom of the panel. So it covers neither what it is about nor the pointer
/// there. Rectangles are in coordinates of any origin: on Wayland nobody knows where the panel is.
[[nodiscard]] QPoint toolTipPlace(const QSize& size, const QRect& described, const QRect& panel, int displayWidth);

/// Shows the tool tip of the widget, a part of the panel, in that place. Returns whether the widget has one.
bool showToolTip(QWidget& widget);

} // namespace nookle
