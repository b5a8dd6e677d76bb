#pragma once

#include "DesktopBackend.h"
#include "ToolkitSettings.h"
#include "X11Manner.h"
#include "XcbConnection.h"

namespace nookle {

class X11Clipboard;
class X11Displays;
class X11DragOffer;
class X11Drops;
class X11FrameTheme;

/// The desktop backend for the X server.
class X11Backend final : public DesktopBackend {
public:
    /// Whether the server that the environment names accepts a connection.
    [[nodiscard]] static bool isServerRunning();

    /// The settings for all toolkits there. Works before the application object exists.
    [[nodiscard]] static ToolkitSettings::Values publishedSettings();

    /// For an X11 session. The application object must exist and run on X11.
    X11Backend();
    /// For a session of another kind, with its own shortcuts.
    X11Backend(std::unique_ptr<GlobalShortcuts> shortcuts, const X11MannerMaker& makeManner);
    ~X11Backend() override;

    [[nodiscard]] const Displays& displays() const override;
    [[nodiscard]] const Pointer& pointer() const override { return m_manner->pointer(); }
    [[nodiscard]] InputMonitor& inputMonitor() override { return m_manner->inputMonitor(); }
    [[nodiscard]] Compositing& compositing() override { return m_manner->compositing(); }
    [[nodiscard]] GlobalShortcuts& globalShortcuts() override { return *m_globalShortcuts; }
    [[nodiscard]] TrayHost* embeddingTray() override { return m_embeddingTray.get(); }
    [[nodiscard]] ToolkitSettings* toolkitSettings() override { return m_toolkitSettings.get(); }
    [[nodiscard]] Clipboard* clipboard() override;
    [[nodiscard]] std::unique_ptr<DropPayload> dropPayload(const QMimeData& data) override;
    void offerDrag(std::shared_ptr<const DragPayload> payload) override;
    [[nodiscard]] bool canReserveSpace() const override { return m_manner->canReserveSpace(); }
    [[nodiscard]] std::unique_ptr<PanelWindow> makePanelWindow(QWindow& window, double cornerRadius) override;

private:
    xcb_connection_t* m_connection;
    /// For queries that are sent about forty times a second during a drag.
    XcbConnection m_queries;
    std::unique_ptr<X11Displays> m_displays;
    std::unique_ptr<X11Manner> m_manner;
    std::unique_ptr<GlobalShortcuts> m_globalShortcuts;
    std::unique_ptr<TrayHost> m_embeddingTray;
    std::unique_ptr<ToolkitSettings> m_toolkitSettings;
    std::unique_ptr<X11FrameTheme> m_frameTheme;
    std::unique_ptr<X11Clipboard> m_clipboard;
    std::unique_ptr<X11Drops> m_drops;
    std::unique_ptr<X11DragOffer> m_dragOffer;
};

} // namespace nookle
