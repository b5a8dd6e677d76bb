#include "DragCover.h"

#include "X11Coordinates.h"

#include <QPainter>

namespace nookle {

namespace {

/// The window's number on the server.
[[nodiscard]] std::uint32_t createTransparent(QWindow& window)
{
    QSurfaceFormat transparent = window.format();
    transparent.setAlphaBufferSize(8);
    window.setFormat(transparent);
    window.setFlags(Qt::Window | Qt::FramelessWindowHint);
    return static_cast<std::uint32_t>(window.winId());
}

} // namespace

DragCover::DragCover(const QRect& parking, xcb_connection_t* connection, WindowPlacing placing)
    : m_parking(parking)
    , m_dock(connection, createTransparent(*this), placing)
{
    setGeometry(m_parking);
    m_dock.setProperties();
    m_dock.setInputShape({});
    show();
    m_dock.moveTo(m_parking);
}

DragCover::~DragCover() = default;

void DragCover::cover(const QRectF& area, const QRectF& display)
{
    m_dock.moveTo(pixelsFromPoints(area, display));
    m_dock.setToolWindow(true);
    m_dock.raise();
}

void DragCover::park()
{
    m_dock.setToolWindow(false);
    m_dock.moveTo(m_parking);
}

void DragCover::parkAt(const QRect& parking)
{
    m_parking = parking;
    park();
}

void DragCover::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(QRect(QPoint(), size()), Qt::transparent);
}

} // namespace nookle
