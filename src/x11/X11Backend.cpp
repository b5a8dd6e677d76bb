#include "X11Backend.h"

#include "X11Clipboard.h"
#include "X11Compositing.h"
#include "X11Displays.h"
#include "X11DragOffer.h"
#include "X11Drops.h"
#include "X11FrameTheme.h"
#include "X11GlobalShortcuts.h"
#include "X11InputMonitor.h"
#include "X11PanelWindow.h"
#include "X11Pointer.h"
#include "X11ToolkitSettings.h"
#include "X11TrayHost.h"
#include "XcbRoot.h"

#include <QGuiApplication>

#include <utility>

#include <xcb/xcb.h>

namespace nookle {

namespace {

/// An X11 session: the server knows everything about the mouse, and the panel's window moves.
class SessionManner final : public X11Manner {
public:
    explicit SessionManner(const X11Server& server)
        : m_server(server)
        , m_pointer(server.queries, rootOf(server.connection))
        , m_inputMonitor(server.connection)
        , m_compositing(server.connection)
    {
    }

    [[nodiscard]] const Pointer& pointer() const override { return m_pointer; }
    [[nodiscard]] InputMonitor& inputMonitor() override { return m_inputMonitor; }
    [[nodiscard]] Compositing& compositing() override { return m_compositing; }
    [[nodiscard]] bool canReserveSpace() const override { return true; }

    [[nodiscard]] std::unique_ptr<PanelWindow> makePanelWindow(QWindow& window, double cornerRadius) override
    {
        return std::make_unique<X11PanelWindow>(window, cornerRadius, m_server.displays, m_compositing,
                                                m_server.connection);
    }

    void displaysChanged() override {}
    void dragBegins() override {}

private:
    X11Server m_server;
    X11Pointer m_pointer;
    X11InputMonitor m_inputMonitor;
    X11Compositing m_compositing;
};

} // namespace

bool X11Backend::isServerRunning()
{
    const XcbConnection connection(xcb_connect(nullptr, nullptr));
    return xcb_connection_has_error(connection.get()) == 0;
}

ToolkitSettings::Values X11Backend::publishedSettings()
{
    return publishedX11Settings();
}

X11Backend::X11Backend()
    : X11Backend(std::make_unique<X11GlobalShortcuts>(),
                 [](const X11Server& server) { return std::make_unique<SessionManner>(server); })
{
}

X11Backend::X11Backend(std::unique_ptr<GlobalShortcuts> shortcuts, const X11MannerMaker& makeManner)
    : m_connection(qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection())
    , m_queries(xcb_connect(nullptr, nullptr))
    , m_displays(std::make_unique<X11Displays>(m_queries.get(), rootOf(m_connection)))
    , m_manner(makeManner({ m_connection, m_queries.get(), *m_displays }))
    , m_globalShortcuts(std::move(shortcuts))
    , m_embeddingTray(std::make_unique<X11TrayHost>(m_connection))
    , m_toolkitSettings(std::make_unique<X11ToolkitSettings>(m_connection))
    , m_frameTheme(std::make_unique<X11FrameTheme>(m_connection))
    , m_clipboard(std::make_unique<X11Clipboard>())
    , m_drops(std::make_unique<X11Drops>(m_connection))
    , m_dragOffer(std::make_unique<X11DragOffer>(m_connection))
{
    m_displays->onChanged = [this] {
        m_manner->displaysChanged();
        if (onDisplaysChanged)
            onDisplaysChanged();
    };
    m_manner->onServerGone = [this] {
        if (onServerGone)
            onServerGone();
    };
}

X11Backend::~X11Backend() = default;

const Displays& X11Backend::displays() const
{
    return *m_displays;
}

Clipboard* X11Backend::clipboard()
{
    return m_clipboard.get();
}

std::unique_ptr<DropPayload> X11Backend::dropPayload(const QMimeData& /*data*/)
{
    return m_drops->payload();
}

void X11Backend::offerDrag(std::shared_ptr<const DragPayload> payload)
{
    m_manner->dragBegins();
    m_dragOffer->begin(std::move(payload));
}

std::unique_ptr<PanelWindow> X11Backend::makePanelWindow(QWindow& window, double cornerRadius)
{
    return m_manner->makePanelWindow(window, cornerRadius);
}

} // namespace nookle
