#pragma once

#include "Lifetime.h"
#include "MainQueue.h"
#include "PanelPinning.h"

#include <QRectF>

#include <functional>
#include <memory>
#include <optional>

namespace nookle {

class Displays;
class PanelWindow;
class Pointer;
class ShelfStore;

/// Decides when and where the shelf's panel slides in and out. One for the life of the program. The constructor's
/// arguments must outlive it. Main thread only.
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

    /// True while the panel is about to slide in, as soon as it is known on which display.
    [[nodiscard]] bool isComing() const { return m_isLooking; }

    /// Slides the panel in on the display under the pointer, as soon as it is known which one that is. On a shown panel
    /// it only cancels a pending hide.
    void show();

    /// As `show`, and takes the keyboard focus, but never under a drag. The panel stays while it has the focus.
    void showForKeys();

    /// Gives the panel the keyboard focus. Set by the owner.
    std::function<void()> onTakeFocus = [] {};

    /// Called when the panel begins to slide in (true) or out (false). Set by the owner.
    std::function<void(bool isShown)> onShownChanged = [](bool) {};

    /// Call this when the panel has got the keyboard focus (true) or lost it.
    void focusChanged(bool hasFocus);

    /// Slides the panel out, even if the pointer is over it; while one of its menus is open, has that closed first, and
    /// while a rubber band is drawn, waits for its end. On a hidden panel it only cancels a pending hide.
    void hide();

    /// Closes the menus of the panel. Set by the owner.
    std::function<void()> onCloseMenus = [] {};

    /// Shows a hidden panel for a drag of another program, and schedules its hiding once the left button is released.
    void showForIncomingDrag();

    /// Toggles the pinned state. Unpinning a shown panel schedules its hiding.
    void togglePinned();

    /// Whether the desktop keeps other windows out of the panel's space while it is pinned and shown.
    void setReservesSpace(bool reservesSpace);

    /// Hides the panel in `seconds` unless it is pinned. Delays this while the pointer is over the panel, one of its
    /// menus is open, or an item is being dragged out of it. Replaces a pending hide.
    void scheduleHide(double seconds);

    /// Call this when a display was added, removed or changed. Moves a shown panel to its place on its display, or on
    /// another one if its own is gone. A hidden panel stays hidden.
    void displaysChanged();

    /// Call this when a drag that the shelf accepts has entered the shelf (true) or left it.
    void dropTargetChanged(bool isDropTarget);

    /// Call this when a menu of the panel has opened or a rubber band has begun on it (true), and when these are gone.
    /// The panel does not slide out by itself meanwhile.
    void menuOpenChanged(bool isOpen);

    /// Call these when the drag of an item out of the shelf has begun, and when it has ended and its result was
    /// handled.
    void beginDragOut();
    void endDragOut();

private:
    void tellExpectedFrame();
    void slideIn(const QRectF& display);
    [[nodiscard]] std::optional<QRectF> displayUnderPointer() const;
    /// The present frame of the display on which the panel was shown; none when that display is gone.
    [[nodiscard]] std::optional<QRectF> ownDisplay() const;
    void cancelPendingHide() { m_pendingHide.reset(); }
    void hideUnlessInUse();
    void checkDragIn();
    void updateReservation();

    ShelfStore& m_store;
    PanelWindow& m_panel;
    const Pointer& m_pointer;
    const Displays& m_displays;
    MainQueue& m_queue;
    PanelPinning m_pinning;
    std::unique_ptr<Cancellable> m_pendingHide;
    std::unique_ptr<Cancellable> m_dragInTimer;
    bool m_isDraggingOut = false;
    bool m_hasFocus = false;
    /// True while the panel is shown because of `showForKeys`, until it loses the focus.
    bool m_isForKeys = false;
    bool m_isMenuOpen = false;
    bool m_hidesAfterMenu = false;
    bool m_isShown = false;
    bool m_isLooking = false;
    bool m_reservesSpace = false;
    /// The identity of the display that the panel was shown on last.
    QString m_display;
    Lifetime m_lifetime;
};

} // namespace nookle
