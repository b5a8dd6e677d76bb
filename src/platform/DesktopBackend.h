#pragma once

#include "Compositing.h"
#include "Displays.h"
#include "DragPayload.h"
#include "DropPayload.h"
#include "GlobalShortcuts.h"
#include "InputMonitor.h"
#include "PanelWindow.h"
#include "Pointer.h"
#include "TrayHost.h"

#include <functional>
#include <memory>

class QMimeData;
class QWindow;

namespace nookle {

class Clipboard;
class ToolkitSettings;

/// The implementation of all services that depend on the display server, for one kind of display server. Main thread
/// only.
class DesktopBackend {
public:
    virtual ~DesktopBackend() = default;

    [[nodiscard]] virtual const Displays& displays() const = 0;
    [[nodiscard]] virtual const Pointer& pointer() const = 0;
    [[nodiscard]] virtual InputMonitor& inputMonitor() = 0;

    [[nodiscard]] virtual Compositing& compositing() = 0;
    [[nodiscard]] virtual GlobalShortcuts& globalShortcuts() = 0;
    /// The kind of tray that embeds windows of programs; null when the display server knows none.
    [[nodiscard]] virtual TrayHost* embeddingTray() = 0;

    /// The settings that the display server carries; null where it carries none.
    [[nodiscard]] virtual ToolkitSettings* toolkitSettings() { return nullptr; }

    /// The clipboard where the display server has a way of its own to it; null where the toolkit's is as good.
    [[nodiscard]] virtual Clipboard* clipboard() { return nullptr; }

    /// Makes a payload that reads the drag over a window of this program, or the one that was just dropped there.
    /// `data` is the toolkit's object for that drag, and must outlive the payload.
    [[nodiscard]] virtual std::unique_ptr<DropPayload> dropPayload(const QMimeData& data) = 0;

    /// Call this before the toolkit begins a drag that carries `payload`. Receivers may request the payload until the
    /// next drag begins.
    virtual void offerDrag(std::shared_ptr<const DragPayload> payload) = 0;

    /// Call this when that drag has ended.
    virtual void dragHasEnded() {}

    /// Whether the panel can have the desktop keep other windows out of its space (`PanelWindow::reserveSpace`).
    [[nodiscard]] virtual bool canReserveSpace() const = 0;

    /// Turns `window` into the shelf's panel. Without transparent windows, its left corners are cut off with
    /// `cornerRadius`, in points. `window` has been created, has not been shown, and must outlive the panel.
    [[nodiscard]] virtual std::unique_ptr<PanelWindow> makePanelWindow(QWindow& window, double cornerRadius) = 0;

    /// Called when a display was added, removed or changed. Set by the owner.
    std::function<void()> onDisplaysChanged;

    /// Called when the compositor is gone, and the toolkit is about to end the program: save all unsaved changes.
    /// Set by the owner.
    std::function<void()> onServerGone;
};

} // namespace nookle
