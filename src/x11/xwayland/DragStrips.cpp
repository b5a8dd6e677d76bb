#include "DragStrips.h"

#include "Displays.h"
#include "EdgeInputMonitor.h"
#include "ForeignDrags.h"
#include "SeenPointer.h"
#include "X11Coordinates.h"

#include <QDropEvent>

#include <utility>

namespace nookle {

DragStrips::DragStrips(const Services& services, xcb_connection_t* connection, WindowPlacing placing)
    : m_services(services)
    , m_connection(connection)
    , m_placing(placing)
{
    m_services.input.onWatchedChanged = [this] { update(); };
    m_services.drags.onChanged = [this] { update(); };
    makeStrips();
}

DragStrips::~DragStrips()
{
    m_services.input.onWatchedChanged = nullptr;
    m_services.drags.onChanged = nullptr;
}

void DragStrips::displaysChanged()
{
    m_strips.clear();
    makeStrips();
    placeStrips();
}

void DragStrips::leaveToPanel(const std::optional<QRectF>& display)
{
    if (std::exchange(m_leftToPanel, display) != display)
        placeStrips();
}

void DragStrips::raise()
{
    if (!m_areNeeded)
        return;
    for (const auto& strip : m_strips)
        strip->raise();
}

void DragStrips::placeStrips()
{
    for (const auto& strip : m_strips) {
        if (m_areNeeded && strip->display() != m_leftToPanel)
            strip->standAtEdge(m_services.displays.visibleFrame(strip->display()));
        else
            strip->park();
    }
}

void DragStrips::makeStrips()
{
    const QPoint parking = pixelBeyond(m_services.displays.frames()).topLeft();
    for (const QRectF& frame : m_services.displays.frames()) {
        auto strip = std::make_unique<DragStrip>(
            DragStrip::Place{ frame, m_services.displays.visibleFrame(frame), parking }, m_connection, m_placing);
        strip->onDragEvent = [this](QDropEvent& event, const QPointF& position) { handleDrag(event, position); };
        strip->onDragLeft = [this] {
            m_services.pointer.leave();
            if (onDragLeft)
                onDragLeft();
        };
        // No compositor lets the pointer come over a window while a drag is under way.
        strip->onPointerCame = [this] { m_services.drags.end(); };
        m_strips.push_back(std::move(strip));
    }
}

void DragStrips::update()
{
    const bool areNeeded = m_services.input.isWatched() && m_services.drags.isUnderWay();
    if (areNeeded == m_areNeeded)
        return;
    m_areNeeded = areNeeded;
    if (onNeedChanged)
        onNeedChanged();
    placeStrips();
}

void DragStrips::handleDrag(QDropEvent& event, const QPointF& position)
{
    const bool isDrop = event.type() == QEvent::Drop;
    // The panel knows better where the pointer is after a drop.
    if (isDrop)
        m_services.pointer.leave();
    else
        m_services.pointer.drag(position);
    if (event.type() == QEvent::DragEnter)
        m_services.input.dragHasReachedEdge();
    if (onDragEvent)
        onDragEvent(event, position);
    else
        event.ignore();
    if (isDrop)
        m_services.drags.end();
}

} // namespace nookle
