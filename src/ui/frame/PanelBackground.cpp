#include "PanelBackground.h"

#include "Colors.h"
#include "PixelGrid.h"

#include <QLineF>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

#include <algorithm>
#include <cmath>

namespace nookle {

namespace {

inline constexpr double dropStrokeWidth = 2;

/// Three sides of the panel, open on the right, with round corners.
[[nodiscard]] QPainterPath panelEdge(const QRectF& rect, double radius)
{
    const double diameter = 2 * radius;
    QPainterPath path;
    path.moveTo(rect.topRight());
    path.lineTo(rect.left() + radius, rect.top());
    path.arcTo(rect.left(), rect.top(), diameter, diameter, 90, 90);
    path.lineTo(rect.left(), rect.bottom() - radius);
    path.arcTo(rect.left(), rect.bottom() - diameter, diameter, diameter, 180, 90);
    path.lineTo(rect.bottomRight());
    return path;
}

[[nodiscard]] QPainterPath panelShape(const QRectF& rect, double radius)
{
    QPainterPath path = panelEdge(rect, radius);
    path.closeSubpath();
    return path;
}

/// The panel's colour. It is transparent on a blurred backdrop only: on a sharp one, what lies below would look like
/// items of the shelf.
[[nodiscard]] QColor material(const QPalette& palette, Backdrop backdrop)
{
    constexpr float opacityBlurred = 0.75F;
    QColor color = palette.color(QPalette::Window);
    if (backdrop == Backdrop::blurred)
        color.setAlphaF(opacityBlurred);
    return color;
}

/// A line of whole pixels, as close to a point as they come without being wider.
[[nodiscard]] double hairline(const PixelGrid& grid)
{
    return std::max(1.0, std::floor(grid.scale())) / grid.scale();
}

} // namespace

void paintPanelBackground(QPainter& painter, const QRectF& panel, const QPalette& palette, Backdrop backdrop)
{
    if (backdrop == Backdrop::opaque)
        painter.fillRect(panel, palette.color(QPalette::Window));
    else
        painter.fillPath(panelShape(panel, panelCornerRadius), material(palette, backdrop));
}

void paintFade(QPainter& painter, const QRectF& panel, const QLineF& direction, double strength,
               const QPalette& palette, Backdrop backdrop)
{
    const QPainterPath shape = panelShape(panel, panelCornerRadius);
    QColor color = palette.color(QPalette::Window);
    QLinearGradient cover(direction.p1(), direction.p2());
    cover.setColorAt(1, Qt::transparent);
    if (backdrop != Backdrop::blurred) {
        color.setAlphaF(0);
        cover.setColorAt(1, color);
        color.setAlphaF(static_cast<float>(strength));
        cover.setColorAt(0, color);
        painter.fillPath(shape, cover);
        return;
    }
    // The background is transparent itself. So a share of everything is taken away, and the same share of the
    // background is put back.
    cover.setColorAt(0, QColor::fromRgbF(0, 0, 0, static_cast<float>(strength)));
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.fillPath(shape, cover);
    QColor back = material(palette, backdrop);
    back.setAlphaF(back.alphaF() * static_cast<float>(strength));
    color.setAlphaF(0);
    cover.setColorAt(0, back);
    cover.setColorAt(1, color);
    painter.setCompositionMode(QPainter::CompositionMode_Plus);
    painter.fillPath(shape, cover);
}

void paintPanelOutline(QPainter& painter, const QRectF& panel, const QPalette& palette)
{
    const double width = hairline(PixelGrid(painter));
    const double inset = width / 2;
    painter.strokePath(panelEdge(panel.adjusted(inset, inset, 0, -inset), panelCornerRadius - inset),
                       QPen(outlineColor(palette), width, Qt::SolidLine, Qt::FlatCap));
}

void paintDropTarget(QPainter& painter, const QRectF& panel, const QPalette& palette)
{
    const double inset = dropStrokeWidth / 2;
    painter.strokePath(panelShape(panel.adjusted(inset, inset, -inset, -inset), panelCornerRadius - inset),
                       QPen(accentColor(palette), dropStrokeWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
}

} // namespace nookle
