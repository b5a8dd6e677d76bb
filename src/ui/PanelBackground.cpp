#include "PanelBackground.h"

#include "Colors.h"

#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace nookle {

namespace {

inline constexpr double dropStrokeWidth = 2;

[[nodiscard]] QPainterPath panelShape(const QRectF& rect)
{
    QPainterPath rounded;
    rounded.addRoundedRect(rect.adjusted(0, 0, panelCornerRadius, 0), panelCornerRadius, panelCornerRadius);
    QPainterPath bounds;
    bounds.addRect(rect);
    return rounded.intersected(bounds);
}

/// The panel's colour, partly transparent. It is more transparent on a blurred backdrop, which does not disturb
/// reading.
[[nodiscard]] QColor material(const QPalette& palette, Backdrop backdrop)
{
    constexpr float opacityBlurred = 0.75F;
    constexpr float opacityPlain = 0.92F;
    QColor color = palette.color(QPalette::Window);
    color.setAlphaF(backdrop == Backdrop::blurred ? opacityBlurred : opacityPlain);
    return color;
}

} // namespace

void paintPanelBackground(QPainter& painter, const QRectF& panel, const QPalette& palette, Backdrop backdrop)
{
    if (backdrop == Backdrop::opaque)
        painter.fillRect(panel, palette.color(QPalette::Window));
    else
        painter.fillPath(panelShape(panel), material(palette, backdrop));
}

void paintDropTarget(QPainter& painter, const QRectF& panel, const QPalette& palette)
{
    const double inset = dropStrokeWidth / 2;
    painter.setPen(QPen(accentColor(palette), dropStrokeWidth));
    painter.drawPath(panelShape(panel.adjusted(inset, inset, -inset, -inset)));
}

} // namespace nookle
