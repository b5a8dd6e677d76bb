#include "DragStrip.h"

#include "X11Coordinates.h"

#include <QDropEvent>
#include <QPainter>

#include <algorithm>

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

DragStrip::DragStrip(const QRectF& display, const QRect& parking, xcb_connection_t* connection)
    : m_display(display)
    , m_parking(parking)
    , m_dock(connection, createTransparent(*this))
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

bool DragStrip::event(QEvent* event)
{
    switch (event->type()) {
    // The X server also says that the pointer has entered if the strip comes to the place where it saw the pointer
    // last.
    case QEvent::MouseMove:
        if (onPointerCame)
            onPointerCame();
        return true;
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        handleDrag(static_cast<QDropEvent&>(*event));
        return true;
    case QEvent::DragLeave:
        if (onDragLeft)
            onDragLeft();
        return true;
    default:
        return QRasterWindow::event(event);
    }
}

void DragStrip::handleDrag(QDropEvent& event)
{
    // A drag of this program has its source here.
    if (event.source() || !onDragEvent) {
        event.ignore();
        return;
    }
    onDragEvent(event, onDesktop(event.position()));
}

void DragStrip::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(QRect(QPoint(), size()), Qt::transparent);
}

} // namespace nookle
