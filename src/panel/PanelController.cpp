#include "PanelController.h"

#include "Displays.h"
#include "PanelWindow.h"
#include "Pointer.h"
#include "ShelfStore.h"

#include <algorithm>
#include <utility>

namespace nookle {

namespace {

inline constexpr double panelWidth = 112;
inline constexpr double verticalMargin = 24;
inline constexpr double slideDuration = 0.18;
inline constexpr double autoHideDelay = 0.5;
inline constexpr double dragInPollInterval = 0.1;

/// The panel's frame at rest: at the right edge of a display's usable area, with a margin above and below.
[[nodiscard]] QRectF restingFrame(const QRectF& visibleFrame)
{
    const QRectF area = visibleFrame.adjusted(0, verticalMargin, 0, -verticalMargin);
    return { area.right() - panelWidth, area.top(), panelWidth, area.height() };
}

} // namespace

PanelController::PanelController(ShelfStore& store, UserDefaults& defaults, PanelWindow& panel, const Pointer& pointer,
                                 const Displays& displays, MainQueue& queue)
    : m_store(store)
    , m_panel(panel)
    , m_pointer(pointer)
    , m_displays(displays)
    , m_queue(queue)
    , m_pinning(defaults)
{
    m_panel.onMouseEntered = [this] { cancelPendingHide(); };
    m_panel.onMouseExited = [this] { scheduleHide(autoHideDelay); };
    tellExpectedFrame();
}

PanelController::~PanelController()
{
    m_panel.onMouseEntered = nullptr;
    m_panel.onMouseExited = nullptr;
}

std::optional<QRectF> PanelController::displayUnderPointer() const
{
    if (const auto frame = frameAt(m_displays.frames(), m_pointer.position()))
        return frame;
    return m_displays.mainFrame();
}

std::optional<QRectF> PanelController::ownDisplay() const
{
    const std::vector<QRectF> frames = m_displays.frames();
    const auto own = std::find_if(frames.begin(), frames.end(),
                                  [this](const QRectF& frame) { return m_displays.identity(frame) == m_display; });
    return own == frames.end() ? std::nullopt : std::optional(*own);
}

void PanelController::show()
{
    cancelPendingHide();
    m_hidesAfterMenu = false;
    if (m_isShown)
        return;
    if (const auto display = frameAt(m_displays.frames(), m_pointer.position())) {
        m_isForKeys = false;
        slideIn(*display);
        return;
    }
    if (std::exchange(m_isLooking, true))
        return;
    m_isForKeys = false;
    m_displays.findActive(m_lifetime.guarded([this](const std::optional<QRectF>& display) {
        if (!std::exchange(m_isLooking, false) || !display)
            return;
        slideIn(*display);
        if (m_isForKeys)
            onTakeFocus();
    }));
}

void PanelController::slideIn(const QRectF& display)
{
    m_isLooking = false;
    m_isShown = true;
    onShownChanged(true);
    m_display = m_displays.identity(display);
    m_store.refreshFiles();
    const QRectF resting = restingFrame(m_displays.visibleFrame(display));
    m_panel.setFrame(resting.translated(panelWidth, 0));
    m_panel.orderFront();
    // Some window managers pass over the reservation of a window that is not on the screen.
    m_panel.animateFrame(resting, slideDuration, Easing::out, m_lifetime.guarded([this] { updateReservation(); }));
}

void PanelController::showForKeys()
{
    const bool isDragging = m_dragInTimer || m_isDraggingOut || m_pointer.isLeftButtonDown();
    show();
    if (isDragging || (!m_isShown && !m_isLooking))
        return;
    m_isForKeys = true;
    if (m_isShown)
        onTakeFocus();
}

void PanelController::focusChanged(bool hasFocus)
{
    m_hasFocus = hasFocus;
    if (!hasFocus && std::exchange(m_isForKeys, false) && m_isShown)
        scheduleHide(autoHideDelay);
}

void PanelController::hide()
{
    cancelPendingHide();
    m_isLooking = false;
    if (!m_isShown)
        return;
    if (m_isMenuOpen) {
        m_hidesAfterMenu = true;
        onCloseMenus();
        return;
    }

    m_isShown = false;
    m_isForKeys = false;
    onShownChanged(false);
    updateReservation();
    const QRectF frame = m_panel.frame();
    m_panel.animateFrame(frame.translated(frame.width(), 0), slideDuration, Easing::in, m_lifetime.guarded([this] {
        if (!m_isShown)
            m_panel.orderOut();
    }));
}

void PanelController::showForIncomingDrag()
{
    if (m_isShown)
        return;
    show();
    m_dragInTimer = m_queue.every(dragInPollInterval, [this] { checkDragIn(); });
}

void PanelController::checkDragIn()
{
    if (m_pointer.isLeftButtonDown())
        return;
    m_dragInTimer.reset();
    scheduleHide(autoHideDelay);
}

void PanelController::togglePinned()
{
    m_pinning.setPinned(!m_pinning.isPinned());
    updateReservation();
    if (!m_pinning.isPinned() && m_isShown)
        scheduleHide(autoHideDelay);
}

void PanelController::setReservesSpace(bool reservesSpace)
{
    m_reservesSpace = reservesSpace;
    updateReservation();
}

void PanelController::updateReservation()
{
    const auto display = ownDisplay();
    if (m_reservesSpace && m_isShown && m_pinning.isPinned() && display)
        m_panel.reserveSpace(restingFrame(m_displays.visibleFrame(*display)));
    else
        m_panel.reserveSpace(std::nullopt);
}

void PanelController::scheduleHide(double seconds)
{
    cancelPendingHide();
    if (m_pinning.isPinned())
        return;
    m_pendingHide = m_queue.after(seconds, [this] { hideUnlessInUse(); });
}

void PanelController::hideUnlessInUse()
{
    if (m_pinning.isPinned())
        return;
    const bool isInUse =
        m_isDraggingOut || m_isMenuOpen || (m_isForKeys && m_hasFocus) || covers(m_panel.frame(), m_pointer.position());
    if (!isInUse) {
        hide();
        return;
    }
    scheduleHide(autoHideDelay);
}

void PanelController::tellExpectedFrame()
{
    if (const auto display = m_displays.mainFrame())
        m_panel.expectFrame(restingFrame(m_displays.visibleFrame(*display)));
}

void PanelController::displaysChanged()
{
    if (!m_isShown) {
        tellExpectedFrame();
        m_panel.orderOut();
        return;
    }
    const std::optional<QRectF> own = ownDisplay();
    const auto display = own ? own : displayUnderPointer();
    if (!display)
        return;
    m_display = m_displays.identity(*display);
    m_panel.setFrame(restingFrame(m_displays.visibleFrame(*display)));
    updateReservation();
}

void PanelController::dropTargetChanged(bool isDropTarget)
{
    if (isDropTarget)
        cancelPendingHide();
    else
        scheduleHide(autoHideDelay);
}

void PanelController::menuOpenChanged(bool isOpen)
{
    m_isMenuOpen = isOpen;
    if (isOpen)
        return;
    if (std::exchange(m_hidesAfterMenu, false))
        hide();
    else if (m_isShown)
        scheduleHide(autoHideDelay);
}

void PanelController::beginDragOut()
{
    cancelPendingHide();
    m_isDraggingOut = true;
}

void PanelController::endDragOut()
{
    m_isDraggingOut = false;
    m_store.refreshFiles();
    scheduleHide(autoHideDelay);
}

} // namespace nookle
