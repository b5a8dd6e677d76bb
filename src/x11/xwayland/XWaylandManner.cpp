#include "XWaylandManner.h"

#include "BeginningDrag.h"
#include "Compositing.h"
#include "CompositorEnd.h"
#include "Displays.h"
#include "DragCover.h"
#include "DragStrips.h"
#include "EdgeInputMonitor.h"
#include "OfferedDrags.h"
#include "QtMainQueue.h"
#include "StalledDrag.h"
#include "X11Coordinates.h"
#include "X11DragOffers.h"
#include "X11Pointer.h"
#include "XWaylandPanelWindow.h"
#include "XWaylandPointer.h"
#include "XcbRoot.h"

#include <QDrag>
#include <QPointer>

#include <xcb/xcb.h>

#include <algorithm>

namespace nookle {

namespace {

/// How far a drag may be from the edge when the compositor learns of it, in points.
inline constexpr double wayOut = 700;

/// Every compositor shows what lies below transparent parts of a window.
class XWaylandCompositing final : public Compositing {
public:
    [[nodiscard]] Backdrop backdrop() const override { return Backdrop::translucent; }
};

class XWaylandManner final : public X11Manner {
public:
    XWaylandManner(const X11Server& server, WindowPlacing placing)
        : m_server(server)
        , m_placing(placing)
        , m_end([this] {
            if (onServerGone)
                onServerGone();
        })
        , m_offers(server.connection)
        , m_drags(m_offers, m_queue)
        , m_pointer(m_drags)
        , m_serverPointer(server.queries, rootOf(server.connection))
        , m_ownDrag(m_serverPointer, m_queue)
        , m_beginningDrag(m_serverPointer, m_queue)
        , m_cover(pixelBeyond(server.displays.frames()), server.connection, placing)
        , m_strips({ m_input, m_pointer, m_drags, server.displays }, server.connection, placing)
    {
        m_ownDrag.onStalled = &QDrag::cancel;
        m_beginningDrag.onSeen = [this] { m_cover.park(); };
    }

    [[nodiscard]] const Pointer& pointer() const override { return m_pointer; }
    [[nodiscard]] InputMonitor& inputMonitor() override { return m_input; }
    [[nodiscard]] Compositing& compositing() override { return m_compositing; }
    // Where no window manager places the panel, none looks at what it reserves.
    [[nodiscard]] bool canReserveSpace() const override { return m_placing == WindowPlacing::windowManager; }
    [[nodiscard]] std::unique_ptr<PanelWindow> makePanelWindow(QWindow& window, double cornerRadius) override;
    void displaysChanged() override;
    void dragBegins() override;

private:
    X11Server m_server;
    WindowPlacing m_placing;
    CompositorEnd m_end;
    QtMainQueue m_queue;
    X11DragOffers m_offers;
    OfferedDrags m_drags;
    XWaylandPointer m_pointer;
    /// The server knows where the pointer is during a drag of an X11 program.
    X11Pointer m_serverPointer;
    StalledDrag m_ownDrag;
    BeginningDrag m_beginningDrag;
    DragCover m_cover;
    EdgeInputMonitor m_input;
    XWaylandCompositing m_compositing;
    DragStrips m_strips;
    QPointer<XWaylandPanelWindow> m_panel;
};

void XWaylandManner::displaysChanged()
{
    m_strips.displaysChanged();
    m_cover.parkAt(pixelBeyond(m_server.displays.frames()));
}

void XWaylandManner::dragBegins()
{
    m_ownDrag.begin();
    const auto display = frameAt(m_server.displays.frames(), m_serverPointer.position());
    if (!display)
        return;
    QRectF area = m_server.displays.visibleFrame(*display);
    area.setLeft(std::max(area.left(), area.right() - wayOut));
    m_cover.cover(area, *display);
    m_beginningDrag.begin();
}

std::unique_ptr<PanelWindow> XWaylandManner::makePanelWindow(QWindow& window, double cornerRadius)
{
    auto panel = std::make_unique<XWaylandPanelWindow>(
        window, cornerRadius, XWaylandPanelWindow::Services{ m_server.displays, m_pointer, m_drags, m_queue },
        m_server.connection, m_placing);
    m_panel = panel.get();
    m_strips.onDragEvent = [this](QDropEvent& event, const QPointF& position) {
        if (m_panel)
            m_panel->handleDragElsewhere(event, position);
    };
    m_strips.onDragLeft = [this] {
        if (m_panel)
            m_panel->dragHasLeftElsewhere();
    };
    m_strips.onNeedChanged = [this] {
        if (m_panel)
            m_panel->setEdgeTaken(m_strips.areNeeded());
    };
    m_panel->onShadowRaised = [this] { m_strips.raise(); };
    m_panel->onSpaceReserved = [this](const std::optional<QRectF>& display) { m_strips.leaveToPanel(display); };
    return panel;
}

} // namespace

std::unique_ptr<X11Manner> makeXWaylandManner(const X11Server& server, WindowPlacing placing)
{
    return std::make_unique<XWaylandManner>(server, placing);
}

} // namespace nookle
