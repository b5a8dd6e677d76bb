#include "XWaylandManner.h"

#include "Compositing.h"
#include "CompositorEnd.h"
#include "DragStrips.h"
#include "EdgeInputMonitor.h"
#include "OfferedDrags.h"
#include "QtMainQueue.h"
#include "StalledDrag.h"
#include "X11DragOffers.h"
#include "X11Pointer.h"
#include "XWaylandPanelWindow.h"
#include "XWaylandPointer.h"

#include <QDrag>
#include <QPointer>

#include <xcb/xcb.h>

namespace nookle {

namespace {

/// Every compositor shows what lies below transparent parts of a window.
class XWaylandCompositing final : public Compositing {
public:
    [[nodiscard]] Backdrop backdrop() const override { return Backdrop::translucent; }
};

class XWaylandManner final : public X11Manner {
public:
    explicit XWaylandManner(const X11Server& server)
        : m_server(server)
        , m_end([this] {
            if (onServerGone)
                onServerGone();
        })
        , m_offers(server.connection)
        , m_drags(m_offers, m_queue)
        , m_pointer(m_drags)
        , m_serverPointer(server.queries, xcb_setup_roots_iterator(xcb_get_setup(server.connection)).data->root)
        , m_ownDrag(m_serverPointer, m_queue)
        , m_strips({ m_input, m_pointer, m_drags, server.displays }, server.connection)
    {
        m_ownDrag.onStalled = &QDrag::cancel;
    }

    [[nodiscard]] const Pointer& pointer() const override { return m_pointer; }
    [[nodiscard]] InputMonitor& inputMonitor() override { return m_input; }
    [[nodiscard]] Compositing& compositing() override { return m_compositing; }
    [[nodiscard]] std::unique_ptr<PanelWindow> makePanelWindow(QWindow& window, double cornerRadius) override;
    void displaysChanged() override { m_strips.displaysChanged(); }
    void dragBegins() override { m_ownDrag.begin(); }

private:
    X11Server m_server;
    CompositorEnd m_end;
    QtMainQueue m_queue;
    X11DragOffers m_offers;
    OfferedDrags m_drags;
    XWaylandPointer m_pointer;
    /// The server knows where the pointer is during a drag of an X11 program.
    X11Pointer m_serverPointer;
    StalledDrag m_ownDrag;
    EdgeInputMonitor m_input;
    XWaylandCompositing m_compositing;
    DragStrips m_strips;
    QPointer<XWaylandPanelWindow> m_panel;
};

std::unique_ptr<PanelWindow> XWaylandManner::makePanelWindow(QWindow& window, double /*cornerRadius*/)
{
    auto panel = std::make_unique<XWaylandPanelWindow>(
        window, XWaylandPanelWindow::Services{ m_server.displays, m_pointer, m_drags, m_queue }, m_server.connection);
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
    return panel;
}

} // namespace

std::unique_ptr<X11Manner> makeXWaylandManner(const X11Server& server)
{
    return std::make_unique<XWaylandManner>(server);
}

} // namespace nookle
