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

/// One display server's implementation of everything that goes through it. Main thread only.
class DesktopBackend {
public:
    virtual ~DesktopBackend() = default;

    [[nodiscard]] virtual const Displays& displays() const = 0;
    [[nodiscard]] virtual const Pointer& pointer() const = 0;
    [[nodiscard]] virtual InputMonitor& inputMonitor() = 0;

    [[nodiscard]] virtual Compositing& compositing() = 0;
    [[nodiscard]] virtual GlobalShortcuts& globalShortcuts() = 0;
    /// The tray that shows windows of programs.
    [[nodiscard]] virtual TrayHost& embeddingTray() = 0;

    /// Makes the drag readable that is over a window of this program, or was just dropped there; `data` is the
    /// toolkit's view of it, and must outlive the payload.
    [[nodiscard]] virtual std::unique_ptr<DropPayload> dropPayload(const QMimeData& data) = 0;

    /// The toolkit is about to begin a drag that carries `payload`. Receivers may ask for it until the next drag
    /// begins.
    virtual void offerDrag(std::shared_ptr<const DragPayload> payload) = 0;

    /// Makes a window of the toolkit the shelf's panel. Where nothing shines through windows, its left corners are cut
    /// off. `window` has been created, has not been shown, and must outlive the panel.
    [[nodiscard]] virtual std::unique_ptr<PanelWindow> makePanelWindow(QWindow& window, double cornerRadius) = 0;

    /// A display has come, gone or changed. Set by the owner.
    std::function<void()> onDisplaysChanged;
};

} // namespace nookle
