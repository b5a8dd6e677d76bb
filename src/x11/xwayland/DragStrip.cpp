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

[[nodiscard]] QRectF edgeOf(const QRectF& usable)
{
    return { usable.right() - DragStrip::thickness, usable.top(), DragStrip::thickness, usable.height() };
}

} // namespace

DragStrip::DragStrip(const Place& place, xcb_connection_t* connection, WindowPlacing placing)
    : m_display(place.display)
    , m_edge(edgeOf(place.usable))
    , m_parking(place.parking)
    , m_dock(connection, createFrameless(*this), placing)
{
    setGeometry(QRect(m_parking, m_edge.toRect().size()));
    m_dock.setProperties();
    show();
    m_dock.moveTo(parked());
}

DragStrip::~DragStrip() = default;

void DragStrip::standAtEdge(const QRectF& usable)
{
    m_edge = edgeOf(usable);
    m_dock.moveTo(pixelsFromPoints(m_edge, m_display));
    m_dock.setToolWindow(true);
    m_dock.raise();
}

void DragStrip::park()
{
    m_dock.setToolWindow(false);
    m_dock.moveTo(parked());
}

// In its full size: GNOME Shell gives a drag that is there already no window that only grows.
QRect DragStrip::parked() const
{
    return { m_parking, pixelsFromPoints(m_edge, m_display).size() };
}

QPointF DragStrip::onDesktop(const QPointF& position) const
{
    return { m_display.right() - thickness + std::clamp(position.x(), 0.5, thickness - 0.5),
             m_edge.top() + std::clamp(position.y(), 0.0, m_edge.height() - 1) };
}

} // namespace nookle
