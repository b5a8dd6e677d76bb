#include "Highlight.h"

#include "Colors.h"

#include <QPainter>

namespace nookle {

namespace {

inline constexpr double focusStrokeWidth = 2;
inline constexpr double selectionLineWidth = 1;

} // namespace

void paintHighlight(QPainter& painter, const QRect& part, double cornerRadius, const QPalette& palette, float opacity)
{
    QColor highlight = primaryColor(palette);
    highlight.setAlphaF(opacity);
    painter.setPen(Qt::NoPen);
    painter.setBrush(highlight);
    painter.drawRoundedRect(part, cornerRadius, cornerRadius);
}

void paintSelection(QPainter& painter, const QRect& part, double cornerRadius, const QPalette& palette)
{
    const double inset = selectionLineWidth / 2;
    painter.setPen(QPen(accentColor(palette), selectionLineWidth));
    painter.setBrush(palette.color(QPalette::Window));
    painter.drawRoundedRect(QRectF(part).adjusted(inset, inset, -inset, -inset), cornerRadius - inset,
                            cornerRadius - inset);
}

void paintFocusFrame(QPainter& painter, const QRect& part, double cornerRadius, const QPalette& palette)
{
    const double inset = focusStrokeWidth / 2;
    painter.setPen(QPen(accentColor(palette), focusStrokeWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(part).adjusted(inset, inset, -inset, -inset), cornerRadius - inset,
                            cornerRadius - inset);
}

} // namespace nookle
