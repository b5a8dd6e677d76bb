#pragma once

#include "Lifetime.h"
#include "MainQueue.h"
#include "PanelPinning.h"

#include <QRectF>

#include <memory>
#include <optional>

namespace nookle {

class Displays;
class PanelWindow;
class Pointer;
class ShelfStore;

/// Every rule that decides when the shelf's panel slides in and out, and where. One for the life of the program; what
/// it is given must outlive it. Main thread only.
class PanelController final {
public:
    PanelController(ShelfStore& store, UserDefaults& defaults, PanelWindow& panel, const Pointer& pointer,
                    const Displays& displays, MainQueue& queue);
    ~PanelController();
    PanelController(const PanelController&) = delete;
    PanelController& operator=(const PanelController&) = delete;

    [[nodiscard]] PanelPinning& pinning() { return m_pinning; }

    /// True from the moment the panel begins to slide in until it begins to slide out.
    [[nodiscard]] bool isShown() const { return m_isShown; }

    /// Slides the panel in on the display under the pointer. On a shown panel it only cancels a pending hide.
    void show();

    /// Slides the panel out, wherever the pointer is, unless a menu of its own is open. On a hidden panel it only
    /// cancels a pending hide.
    void hide();

    /// Shows a hidden panel for a drag of another program, and lets it go once the left button is released.
    void showForIncomingDrag();

    /// Flips the pinned state. Unpinning a shown panel lets it go.
    void togglePinned();

    /// Hides the panel in `seconds` unless it is pinned; puts it off while the pointer is over the panel, a menu of its
    /// own is open or an item is being dragged out of it. Replaces a hide that is already pending.
    void scheduleHide(double seconds);

    /// A display has come, gone or changed: a shown panel stands at rest on the display that it was on, or on another
    /// one when that is gone; a hidden one stays out of sight.
    void displaysChanged();

    /// A drop began (true) or ceased to hover over the shelf.
    void dropTargetChanged(bool isDropTarget);

    /// A menu of the panel's own has opened (true) or closed. It would be left behind by a panel that slides out.
    void menuOpenChanged(bool isOpen);

    /// The drag of an item out of the shelf has begun, or has ended and been dealt with.
    void beginDragOut();
    void endDragOut();

private:
    [[nodiscard]] std::optional<QRectF> displayUnderPointer() const;
    /// The display that the panel was shown on, wherever it is now; none when it is gone.
    [[nodiscard]] std::optional<QRectF> ownDisplay() const;
    void cancelPendingHide() { m_pendingHide.reset(); }
    void hideUnlessInUse();
    void checkDragIn();

    ShelfStore& m_store;
    PanelWindow& m_panel;
    const Pointer& m_pointer;
    const Displays& m_displays;
    MainQueue& m_queue;
    PanelPinning m_pinning;
    std::unique_ptr<Cancellable> m_pendingHide;
    std::unique_ptr<Cancellable> m_dragInTimer;
    bool m_isDraggingOut = false;
    bool m_isMenuOpen = false;
    bool m_isShown = false;
    /// The identity of the display that the panel was shown on last.
    QString m_display;
    Lifetime m_lifetime;
};

} // namespace nookle
