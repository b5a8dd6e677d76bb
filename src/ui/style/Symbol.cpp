#include "Symbol.h"

#include "PixelFitting.h"
#include "PixelGrid.h"

#include <QPainter>
#include <QPainterPath>

namespace nookle {

namespace {

// Every pictogram is drawn on a square of 24 units.
inline constexpr double canvasSize = 24;

[[nodiscard]] double strokeWidth(SymbolWeight weight)
{
    switch (weight) {
    case SymbolWeight::light:
        return 1.1;
    case SymbolWeight::medium:
        return 1.7;
    case SymbolWeight::semibold:
        return 2.2;
    }
    return 0;
}

[[nodiscard]] QPainterPath pinPath()
{
    QPainterPath path;
    path.moveTo(8, 3);
    path.lineTo(16, 3);
    path.lineTo(15, 5);
    path.lineTo(15, 10);
    path.cubicTo(17, 11, 18, 12.5, 18, 14.5);
    path.lineTo(6, 14.5);
    path.cubicTo(6, 12.5, 7, 11, 9, 10);
    path.lineTo(9, 5);
    path.closeSubpath();
    return path;
}

[[nodiscard]] QPainterPath trayPath()
{
    QPainterPath path;
    path.moveTo(3, 13);
    path.lineTo(6, 6);
    path.lineTo(18, 6);
    path.lineTo(21, 13);
    path.lineTo(21, 18.5);
    path.lineTo(3, 18.5);
    path.closeSubpath();
    path.moveTo(3, 13);
    path.lineTo(8.5, 13);
    path.cubicTo(9, 16, 15, 16, 15.5, 13);
    path.lineTo(21, 13);
    return path;
}

[[nodiscard]] QPainterPath linkPath()
{
    QPainterPath path;
    path.moveTo(10, 8);
    path.lineTo(7, 8);
    path.arcTo(QRectF(3, 8, 8, 8), 90, 180);
    path.lineTo(10, 16);
    path.moveTo(14, 8);
    path.lineTo(17, 8);
    path.arcTo(QRectF(13, 8, 8, 8), 90, -180);
    path.lineTo(14, 16);
    path.moveTo(8.5, 12);
    path.lineTo(15.5, 12);
    return path;
}

[[nodiscard]] QPainterPath documentPath()
{
    QPainterPath path;
    path.moveTo(6, 3);
    path.lineTo(14, 3);
    path.lineTo(18, 7);
    path.lineTo(18, 21);
    path.lineTo(6, 21);
    path.closeSubpath();
    for (const double y : { 11.0, 14.0, 17.0 }) {
        path.moveTo(9, y);
        path.lineTo(15, y);
    }
    return path;
}

[[nodiscard]] QPainterPath folderPath()
{
    QPainterPath path;
    path.moveTo(3, 6);
    path.lineTo(9, 6);
    path.lineTo(11, 8);
    path.lineTo(21, 8);
    path.lineTo(21, 19);
    path.lineTo(3, 19);
    path.closeSubpath();
    return path;
}

[[nodiscard]] QPainterPath questionMarkPath()
{
    QPainterPath path;
    path.moveTo(10, 12);
    path.cubicTo(10, 9.6, 14, 9.6, 14, 12);
    path.cubicTo(14, 13.3, 12, 13.3, 12, 14.8);
    return path;
}

[[nodiscard]] QPainterPath needlePath()
{
    QPainterPath path;
    path.moveTo(12, 14.5);
    path.lineTo(12, 21);
    return path;
}

[[nodiscard]] QPainterPath dotPath()
{
    QPainterPath path;
    path.addEllipse(QPointF(12, 16.8), 0.9, 0.9);
    return path;
}

/// A sheet in front of two others, of which the upper edges show.
[[nodiscard]] QPainterPath stackPath()
{
    QPainterPath path;
    path.addRoundedRect(QRectF(3, 10, 18, 11), 2, 2);
    path.moveTo(5.5, 6.5);
    path.lineTo(18.5, 6.5);
    path.moveTo(8, 3);
    path.lineTo(16, 3);
    return path;
}

[[nodiscard]] QPainterPath both(QPainterPath first, const QPainterPath& second)
{
    first.addPath(second);
    return first;
}

struct Shape {
    QPainterPath lines;
    /// Parts that are filled, without lines of their own.
    QPainterPath filled = {};
};

[[nodiscard]] Shape shapeOf(Symbol symbol)
{
    switch (symbol) {
    case Symbol::pin:
        return { both(pinPath(), needlePath()) };
    case Symbol::pinFill:
        return { both(pinPath(), needlePath()), pinPath() };
    case Symbol::tray:
        return { trayPath() };
    case Symbol::link:
        return { linkPath() };
    case Symbol::document:
        return { documentPath() };
    case Symbol::missingFile:
        return { both(folderPath(), questionMarkPath()), dotPath() };
    case Symbol::stack:
        return { stackPath() };
    }
    return {};
}

} // namespace

void drawSymbol(QPainter& painter, Symbol symbol, SymbolWeight weight, const QRectF& box, const QColor& color)
{
    const PixelFitting fitting(PixelGrid(painter), canvasSize, strokeWidth(weight), box);
    const Shape shape = shapeOf(symbol);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (!shape.filled.isEmpty())
        painter.fillPath(fitting.fitted(shape.filled), color);
    painter.strokePath(fitting.fitted(shape.lines),
                       QPen(color, fitting.stroke(), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.restore();
}

} // namespace nookle
