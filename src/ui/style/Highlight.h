#pragma once

#include <QPalette>
#include <QRect>

class QPainter;

namespace nookle {

/// How strongly a part is tinted while the pointer is over it, and while it is pressed.
inline constexpr float hoverOpacity = 0.08F;
inline constexpr float pressOpacity = 0.16F;

/// Tints a part of the panel. `painter` smooths edges.
void paintHighlight(QPainter& painter, const QRect& part, double cornerRadius, const QPalette& palette, float opacity);

/// Paints the ground of a selected part, and the line along its inside. `palette` has the colours of what is selected,
/// and `painter` smooths edges.
void paintSelection(QPainter& painter, const QRect& part, double cornerRadius, const QPalette& palette);

/// Paints the frame of the part that has the keyboard focus, along its inside. `painter` smooths edges.
void paintFocusFrame(QPainter& painter, const QRect& part, double cornerRadius, const QPalette& palette);

} // namespace nookle
