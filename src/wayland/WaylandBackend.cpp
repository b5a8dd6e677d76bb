#include "WaylandBackend.h"

#include "CompositorEnd.h"
#include "EdgeInputMonitor.h"
#include "EdgeStrips.h"
#include "ForgottenDrags.h"
#include "LayerPanelWindow.h"
#include "SeenPointer.h"
#include "WaylandClipboard.h"
#include "WaylandDisplays.h"
#include "WaylandDropPayload.h"
#include "WaylandGlobals.h"

#include <QDropEvent>
#include <QGuiApplication>
#include <QPointer>

#include <wayland-client.h>

#include <utility>

namespace nookle {

namespace {

/// Every compositor shows what lies below transparent parts of a window.
class WaylandCompositing final : public Compositing {
public:
    [[nodiscard]] Backdrop backdrop() const override { return Backdrop::translucent; }
};

/// Sends everything to the compositor; false if it does not take everything now.
[[nodiscard]] bool flushToolkit()
{
    const auto* toolkit = qGuiApp->nativeInterface<QNativeInterface::QWaylandApplication>();
    return toolkit && toolkit->display() && wl_display_flush(toolkit->display()) >= 0;
}

} // namespace

bool WaylandBackend::isLayerShellOffered()
{
    return waylandInterfaces().contains("zwlr_layer_shell_v1");
}

QByteArrayList WaylandBackend::offeredInterfaces()
{
    return waylandInterfaces();
}

WaylandBackend::WaylandBackend(std::unique_ptr<GlobalShortcuts> shortcuts, std::unique_ptr<ForeignDrags> drags)
    : m_end(std::make_unique<CompositorEnd>([this] {
        if (onServerGone)
            onServerGone();
    }))
    , m_shortcuts(std::move(shortcuts))
    , m_drags(drags ? std::make_unique<ForgottenDrags>(std::move(drags), m_queue) : nullptr)
    , m_displays(std::make_unique<WaylandDisplays>())
    , m_pointer(std::make_unique<SeenPointer>())
    , m_inputMonitor(std::make_unique<EdgeInputMonitor>())
    , m_compositing(std::make_unique<WaylandCompositing>())
    , m_clipboard(std::make_unique<WaylandClipboard>(&flushToolkit, clipboardAccess(waylandInterfaces())))
    , m_strips(std::make_unique<EdgeStrips>(*m_inputMonitor, *m_pointer, m_drags.get()))
{
    m_displays->onChanged = [this] {
        m_strips->displaysChanged();
        if (onDisplaysChanged)
            onDisplaysChanged();
    };
}

WaylandBackend::~WaylandBackend() = default;

const Displays& WaylandBackend::displays() const
{
    return *m_displays;
}

const Pointer& WaylandBackend::pointer() const
{
    return *m_pointer;
}

InputMonitor& WaylandBackend::inputMonitor()
{
    return *m_inputMonitor;
}

Clipboard* WaylandBackend::clipboard()
{
    return m_clipboard.get();
}

std::unique_ptr<DropPayload> WaylandBackend::dropPayload(const QMimeData& data)
{
    const auto source = m_drags && m_drags->isOfX11Program() ? WaylandDropPayload::Source::x11Program
                                                             : WaylandDropPayload::Source::waylandProgram;
    const auto* toolkit = qGuiApp->nativeInterface<QNativeInterface::QWaylandApplication>();
    const int socket = toolkit && toolkit->display() ? wl_display_get_fd(toolkit->display()) : -1;
    return std::make_unique<WaylandDropPayload>(data, WaylandDropPayload::Connection{ &flushToolkit, socket }, source,
                                                WaylandDropPayload::Limits());
}

void WaylandBackend::offerDrag(std::shared_ptr<const DragPayload> /*payload*/) {}

void WaylandBackend::dragHasEnded()
{
    m_strips->dragHasEnded();
}

std::unique_ptr<PanelWindow> WaylandBackend::makePanelWindow(QWindow& window, double cornerRadius)
{
    auto panel = std::make_unique<LayerPanelWindow>(window, cornerRadius, *m_pointer);
    m_strips->onDragEvent = [panel = QPointer(panel.get())](QDropEvent& event, const QPointF& position) {
        if (panel)
            panel->handleDragElsewhere(event, position);
        else
            event.ignore();
    };
    panel->onPointerCame = [this] { m_strips->dragHasEnded(); };
    panel->isDragOfX11Program = [this] { return m_drags && m_drags->isOfX11Program(); };
    m_strips->isPanelShown = [panel = QPointer(panel.get())] { return panel && panel->isShown(); };
    m_strips->onDragLeft = [panel = QPointer(panel.get())] {
        if (panel)
            panel->dragHasLeftElsewhere();
    };
    m_strips->onDragEnded = [panel = QPointer(panel.get())] {
        if (panel)
            panel->takeEdge();
    };
    return panel;
}

} // namespace nookle
