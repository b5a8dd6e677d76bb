#include "X11Coordinates.h"

#include <QGuiApplication>
#include <QScreen>

namespace nookle {

namespace {

[[nodiscard]] QRectF pixelGeometry(const QScreen& screen)
{
    return { screen.geometry().topLeft(), QSizeF(screen.geometry().size()) * screen.devicePixelRatio() };
}

[[nodiscard]] const QScreen* screenAt(const QPoint& pixel)
{
    const auto screens = QGuiApplication::screens();
    for (const QScreen* screen : screens) {
        const QRectF geometry = pixelGeometry(*screen);
        if (pixel.x() >= geometry.left() && pixel.x() < geometry.right() && pixel.y() >= geometry.top()
            && pixel.y() < geometry.bottom())
            return screen;
    }
    return QGuiApplication::primaryScreen();
}

} // namespace

QPointF pointsFromPixels(const QPoint& pixel)
{
    const QScreen* screen = screenAt(pixel);
    if (!screen)
        return pixel;
    const QPointF origin = screen->geometry().topLeft();
    return origin + (QPointF(pixel) - origin) / screen->devicePixelRatio();
}

QRectF pointsFromPixels(const QRect& pixels)
{
    const QScreen* screen = screenAt(pixels.topLeft());
    const double scale = screen ? screen->devicePixelRatio() : 1;
    return { pointsFromPixels(pixels.topLeft()), QSizeF(pixels.size()) / scale };
}

QRect pixelsFromPoints(const QRectF& points, const QRectF& display)
{
    const QScreen* screen = screenAt(display.topLeft().toPoint());
    const double scale = screen ? screen->devicePixelRatio() : 1;
    const QPointF origin = display.topLeft();
    return QRectF(origin + (points.topLeft() - origin) * scale, points.size() * scale).toRect();
}

QRect pixelBeyond(const std::vector<QRectF>& displays)
{
    QRect all;
    for (const QRectF& frame : displays)
        all |= pixelsFromPoints(frame, frame);
    return { all.bottomRight() + QPoint(2, 2), QSize(1, 1) };
}

} // namespace nookle
