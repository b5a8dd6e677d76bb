#include "Film.h"

#include <QPainter>
#include <QThread>

#include <algorithm>
#include <cmath>

#include <xcb/xfixes.h>

namespace nookle::e2e {

namespace {

/// Between two frames, in milliseconds.
inline constexpr int interval = 70;

} // namespace

Film::Film(XScreen& screen, const QByteArray& display)
    : m_screen(screen)
    , m_connection(xcb_connect(display.constData(), nullptr))
{
    // The server answers no request of the extension before it knows the version.
    const auto cookie = xcb_xfixes_query_version(m_connection.get(), 2, 0);
    if (!owned(xcb_xfixes_query_version_reply(m_connection.get(), cookie, nullptr)))
        qWarning("the server does not tell how the pointer looks");
}

void Film::moveTo(const QPoint& end)
{
    constexpr int stepLength = 36;
    const QPointF start = m_screen.pointer();
    const QPointF way = QPointF(end) - start;
    const int steps = std::max(1, static_cast<int>(std::hypot(way.x(), way.y()) / stepLength));
    for (int step = 1; step <= steps; ++step) {
        m_screen.moveTo((start + way * step / steps).toPoint());
        take(interval);
    }
}

void Film::rest(int milliseconds)
{
    for (int time = 0; time < milliseconds; time += interval) {
        QThread::msleep(interval);
        take(interval);
    }
}

void Film::take(int milliseconds)
{
    QImage picture = m_screen.picture();
    drawPointer(picture);
    m_film.add(picture, milliseconds);
}

void Film::drawPointer(QImage& picture) const
{
    const auto cookie = xcb_xfixes_get_cursor_image(m_connection.get());
    const auto reply = owned(xcb_xfixes_get_cursor_image_reply(m_connection.get(), cookie, nullptr));
    if (!reply)
        return;
    const auto* pixels = reinterpret_cast<const uchar*>(xcb_xfixes_get_cursor_image_cursor_image(reply.get()));
    const QImage pointer(pixels, reply->width, reply->height, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&picture);
    painter.drawImage(QPoint(reply->x - reply->xhot, reply->y - reply->yhot), pointer);
}

} // namespace nookle::e2e
