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

    /// The icon at any size, in the present colour of the desktop's text. Where it is installed in the desktop's icon
    /// theme it also carries its name, so that a tray can tint it as its own.
    [[nodiscard]] static QIcon make();

    /// Draws it as large as fits into `box`. Does nothing on a painter that paints on nothing.
    static void draw(QPainter& painter, const QRectF& box, const QColor& color);
};

} // namespace nookle
