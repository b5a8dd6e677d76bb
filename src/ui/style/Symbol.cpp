#include "Symbol.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

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

void drawQuestionMark(QPainter& painter, const QColor& color)
{
    QPainterPath path;
    path.moveTo(10, 12);
    path.cubicTo(10, 9.6, 14, 9.6, 14, 12);
    path.cubicTo(14, 13.3, 12, 13.3, 12, 14.8);
    painter.drawPath(path);
    painter.setBrush(color);
    painter.setPen(Qt::NoPen);
    painter.drawEllipse(QPointF(12, 16.8), 0.9, 0.9);
}

void drawPin(QPainter& painter, bool isFilled, const QColor& color)
{
    painter.setBrush(isFilled ? QBrush(color) : QBrush(Qt::NoBrush));
    painter.drawPath(pinPath());
    painter.drawLine(QPointF(12, 14.5), QPointF(12, 21));
}

} // namespace

void drawSymbol(QPainter& painter, Symbol symbol, SymbolWeight weight, const QRectF& box, const QColor& color)
{
    const double scale = std::min(box.width(), box.height()) / canvasSize;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(box.center());
    painter.scale(scale, scale);
    painter.translate(-canvasSize / 2, -canvasSize / 2);
    painter.setPen(QPen(color, strokeWidth(weight), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    switch (symbol) {
    case Symbol::pin:
        drawPin(painter, false, color);
        break;
    case Symbol::pinFill:
        drawPin(painter, true, color);
        break;
    case Symbol::tray:
        painter.drawPath(trayPath());
        break;
    case Symbol::link:
        painter.drawPath(linkPath());
        break;
    case Symbol::document:
        painter.drawPath(documentPath());
        break;
    case Symbol::missingFile:
        painter.drawPath(folderPath());
        drawQuestionMark(painter, color);
        break;
    }
    painter.restore();
}

} // namespace nookle
