#pragma once

#include <QColor>
#include <QIcon>
#include <QRectF>

class QPainter;

namespace nookle {

/// The program's icon in a tray: a smiling tray with two cards sticking out of it, in a single colour. Main thread
/// only.
class MenuBarIcon {
public:
    MenuBarIcon() = delete;

    /// The icon, scalable to any size, in the present colour of the desktop's text. If it is installed in the desktop's
    /// icon theme, it also has its theme name, so that a tray can tint it like its own icons.
    [[nodiscard]] static QIcon make();

    /// Draws the icon as large as fits into `box`. Does nothing if `painter` is not active.
    static void draw(QPainter& painter, const QRectF& box, const QColor& color);
};

} // namespace nookle
