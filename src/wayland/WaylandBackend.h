#pragma once

#include "DesktopBackend.h"
#include "QtMainQueue.h"

#include <QByteArrayList>

#include <memory>

namespace nookle {

class CompositorEnd;
class EdgeInputMonitor;
class EdgeStrips;
class ForeignDrags;
class LayerPanelWindow;
class SeenPointer;
class WaylandClipboard;
class WaylandDisplays;

/// The desktop backend for Wayland compositors with a layer shell.
class WaylandBackend final : public DesktopBackend {
public:
    /// Whether the session's compositor can be reached and offers a layer shell.
    [[nodiscard]] static bool isLayerShellOffered();

    /// The names of the interfaces that the session's compositor offers.
    [[nodiscard]] static QByteArrayList offeredInterfaces();

    /// The application object must exist and run on Wayland. `drags` tells when a drag begins; null where nothing does.
    WaylandBackend(std::unique_ptr<GlobalShortcuts> shortcuts, std::unique_ptr<ForeignDrags> drags);
    ~WaylandBackend() override;

    [[nodiscard]] const Displays& displays() const override;
    [[nodiscard]] const Pointer& pointer() const override;
    [[nodiscard]] InputMonitor& inputMonitor() override;
    [[nodiscard]] Compositing& compositing() override { return *m_compositing; }
    [[nodiscard]] GlobalShortcuts& globalShortcuts() override { return *m_shortcuts; }
    [[nodiscard]] TrayHost* embeddingTray() override { return nullptr; }
    [[nodiscard]] Clipboard* clipboard() override;
    [[nodiscard]] std::unique_ptr<DropPayload> dropPayload(const QMimeData& data) override;
    /// Nothing to do: the toolkit's own answers are all that a compositor asks for.
    void offerDrag(std::shared_ptr<const DragPayload> payload) override;
    void dragHasEnded() override;
    [[nodiscard]] bool canReserveSpace() const override { return true; }
    [[nodiscard]] std::unique_ptr<PanelWindow> makePanelWindow(QWindow& window, double cornerRadius) override;

private:
    std::unique_ptr<CompositorEnd> m_end;
    QtMainQueue m_queue;
    std::unique_ptr<GlobalShortcuts> m_shortcuts;
    std::unique_ptr<ForeignDrags> m_drags;
    std::unique_ptr<WaylandDisplays> m_displays;
    std::unique_ptr<SeenPointer> m_pointer;
    std::unique_ptr<EdgeInputMonitor> m_inputMonitor;
    std::unique_ptr<Compositing> m_compositing;
    std::unique_ptr<WaylandClipboard> m_clipboard;
    std::unique_ptr<EdgeStrips> m_strips;
};

} // namespace nookle
