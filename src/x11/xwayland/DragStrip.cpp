#include "DragStrip.h"

#include "X11Coordinates.h"

#include <algorithm>

namespace nookle {

namespace {

/// The window's number on the server.
[[nodiscard]] std::uint32_t createFrameless(QWindow& window)
{
    window.setFlags(Qt::Window | Qt::FramelessWindowHint);
    return static_cast<std::uint32_t>(window.winId());
}

} // namespace

DragStrip::DragStrip(const QRectF& display, const QRect& parking, xcb_connection_t* connection, WindowPlacing placing)
    : m_display(display)
    , m_parking(parking)
    , m_dock(connection, createFrameless(*this), placing)
{
    setGeometry(m_parking);
    m_dock.setProperties();
    show();
    m_dock.moveTo(m_parking);
}

DragStrip::~DragStrip() = default;

void DragStrip::standAtEdge(const QRectF& usable)
{
    m_edge = QRectF(usable.right() - thickness, usable.top(), thickness, usable.height());
    m_dock.moveTo(pixelsFromPoints(m_edge, m_display));
    m_dock.setToolWindow(true);
    m_dock.raise();
}

void DragStrip::park()
{
    m_dock.setToolWindow(false);
    m_dock.moveTo(m_parking);
}

QPointF DragStrip::onDesktop(const QPointF& position) const
{
    return { m_display.right() - thickness + std::clamp(position.x(), 0.5, thickness - 0.5),
             m_edge.top() + std::clamp(position.y(), 0.0, m_edge.height() - 1) };
}

} // namespace nookle
