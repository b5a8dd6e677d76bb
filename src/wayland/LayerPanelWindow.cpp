#include "LayerPanelWindow.h"

#include "Displays.h"
#include "DragForwarding.h"
#include "ScreenDisplays.h"
#include "SeenPointer.h"
#include "ShadowSurface.h"
#include "StripWindow.h"

#include <LayerShellQt/Window>

#include <QCoreApplication>
#include <QDropEvent>
#include <QEnterEvent>
#include <QExposeEvent>
#include <QMouseEvent>
#include <QResizeEvent>
#include <QScopedValueRollback>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

namespace nookle {

namespace {

using Layer = LayerShellQt::Window;

/// A drag whose hand does not move stays over the panel.
inline constexpr std::chrono::milliseconds longestAside{ 300 };
/// A compositor that gives the keyboard does so within a few milliseconds.
inline constexpr std::chrono::milliseconds timeToGiveTheKeyboard{ 300 };

} // namespace

LayerPanelWindow::LayerPanelWindow(QWindow& window, double cornerRadius, SeenPointer& pointer)
    : m_window(window)
    , m_cornerRadius(cornerRadius)
    , m_pointer(pointer)
    , m_popups(window)
    , m_heldMouse(window, timeToGiveTheKeyboard)
    , m_animation([this](const QRectF& frame) { place(frame); })
    , m_pointerQuestion([this] { m_pointer.leave(); })
{
    m_window.installEventFilter(this);
    // Comes before the window is hidden. The compositor may close it, too.
    connect(&m_window, &QWindow::visibleChanged, this, [this](bool isVisible) {
        if (!isVisible)
            m_shadow.reset();
    });
    m_asideEnd.setSingleShot(true);
    m_asideEnd.setInterval(longestAside);
    connect(&m_asideEnd, &QTimer::timeout, this, &LayerPanelWindow::asideIsOver);
    m_popups.onMenuClosed = [this] { pointerIsDone(); };
    auto* layer = Layer::get(&m_window);
    layer->setScope(QStringLiteral("nookle"));
    layer->setLayer(Layer::LayerOverlay);
    layer->setAnchors(Layer::Anchors(Layer::AnchorRight) | Layer::AnchorTop | Layer::AnchorBottom);
    layer->setExclusiveZone(0);
    layer->setKeyboardInteractivity(Layer::KeyboardInteractivityNone);
}

LayerPanelWindow::~LayerPanelWindow() = default;

void LayerPanelWindow::setFrame(const QRectF& frame)
{
    m_animation.stop();
    setLeaving(false);
    findDisplay(frame);
    place(frame);
    if (m_window.isVisible())
        orderFront();
}

// The panel's own display covers the point just left of its frame, both at the start of the slide and at rest.
void LayerPanelWindow::findDisplay(const QRectF& frame)
{
    std::vector<QRectF> frames;
    for (const QScreen* screen : m_window.screen()->virtualSiblings())
        frames.emplace_back(screen->geometry());
    m_display = frameAt(frames, QPointF(frame.left() - 1, frame.center().y())).value_or(frame);
}

void LayerPanelWindow::place(const QRectF& frame)
{
    m_frame = frame;
    m_resting = frame.translated(m_display.right() - frame.right(), 0);
    if (onContentMoved)
        onContentMoved(contentOffset());
    if (m_shadow)
        m_shadow->slide(contentOffset());
}

double LayerPanelWindow::contentOffset() const
{
    return std::max(0.0, m_frame.left() - m_resting.left());
}

void LayerPanelWindow::orderFront()
{
    QScreen* screen = ScreenDisplays::screenOf(m_display);
    if (!screen)
        return;
    if (m_window.isVisible() && m_window.screen() != screen)
        m_window.setVisible(false);
    const QRect resting = m_resting.toRect();
    auto* layer = Layer::get(&m_window);
    layer->setMargins(
        { 0, resting.top() - screen->geometry().top(), 0, screen->geometry().bottom() - resting.bottom() });
    m_window.setScreen(screen);
    m_window.setGeometry(resting);
    // The toolkit shows a window with the size that its widget still has, and tells the widget only once it is shown.
    QResizeEvent resized(resting.size(), m_window.size());
    QCoreApplication::sendEvent(&m_window, &resized);
    m_window.setVisible(true);
    showShadow();
}

void LayerPanelWindow::showShadow()
{
    const QRectF& panel = m_resting;
    const ShadowSurface::Room room{ qRound(panel.top() - m_display.top()),
                                    qRound(m_display.bottom() - panel.bottom()) };
    // One that is replaced is not seen for a moment.
    if (!m_shadow || m_shadow->room() != room)
        m_shadow = std::make_unique<ShadowSurface>(m_window, m_cornerRadius, room);
    m_shadow->slide(contentOffset());
}

void LayerPanelWindow::orderOut()
{
    m_animation.stop();
    setLeaving(false);
    takeEdge();
    m_window.setVisible(false);
    setAside(Aside::no);
    m_pointerQuestion.end();
    m_heldMouse.drop();
    m_isPointerInside = false;
    giveKeyboardBack();
    m_pointer.leave();
}

void LayerPanelWindow::takeFocus()
{
    m_isForKeys = true;
    takeKeyboard();
}

// Some compositors give the keys to a surface that asks for them on demand only with the next click.
void LayerPanelWindow::takeKeyboard()
{
    Layer::get(&m_window)->setKeyboardInteractivity(Layer::KeyboardInteractivityExclusive);
    tellCompositor();
}

void LayerPanelWindow::giveKeyboardBack()
{
    m_isForKeys = false;
    auto* layer = Layer::get(&m_window);
    if (layer->keyboardInteractivity() == Layer::KeyboardInteractivityNone)
        return;
    layer->setKeyboardInteractivity(Layer::KeyboardInteractivityNone);
    tellCompositor();
}

void LayerPanelWindow::pointerIsDone()
{
    if (!m_isForKeys && !m_isPointerInside && !m_popups.isMenuOpen())
        giveKeyboardBack();
}

// The compositor hears of the change with the window's next picture, and it must hear of it before a menu opens. The
// toolkit hands a picture over at once when a part of the window was uncovered.
void LayerPanelWindow::tellCompositor()
{
    if (!m_window.isExposed())
        return;
    QExposeEvent uncovered(QRect(0, 0, 1, 1));
    QCoreApplication::sendEvent(&m_window, &uncovered);
}

// The compositor adds the space of the desktop's own panels at that edge.
void LayerPanelWindow::reserveSpace(const std::optional<QRectF>& frame)
{
    const int zone = frame ? qRound(frame->width()) : 0;
    auto* layer = Layer::get(&m_window);
    if (layer->exclusionZone() == zone)
        return;
    layer->setExclusiveZone(zone);
    tellCompositor();
}

void LayerPanelWindow::animateFrame(const QRectF& frame, double seconds, Easing easing,
                                    std::function<void()> completion)
{
    findDisplay(frame);
    setLeaving(frame.left() > m_frame.left());
    if (m_isLeaving)
        giveKeyboardBack();
    m_animation.start(m_frame, frame, seconds, easing, m_window.screen(), std::move(completion));
}

// The panel may be hidden during the drag. A hand that does not move is told nothing of that, so what was taken stays
// so until the drag has left.
void LayerPanelWindow::handleDragElsewhere(QDropEvent& event, const QPointF& position)
{
    if (!m_window.isVisible() && !m_isTakenElsewhere) {
        m_pointer.leave();
        event.ignore();
        return;
    }
    const QScopedValueRollback elsewhere(m_isDragElsewhere, true);
    forwardDrag(event, m_window, m_resting, position);
    m_isTakenElsewhere = event.isAccepted() && event.type() != QEvent::Drop;
    // KWin tells what may be done with the drag of an X11 program only when that comes over a second window. With each
    // entry the toolkit reports a movement.
    if (event.type() == QEvent::DragMove)
        setEdgeTaken(event.isAccepted());
}

void LayerPanelWindow::dragHasLeftElsewhere()
{
    m_isTakenElsewhere = false;
    forwardDragLeave(m_window);
}

void LayerPanelWindow::takeEdge()
{
    m_timesAside = 0;
    setEdgeTaken(false);
}

// A drag that is let go on the strip would be lost if the panel took its place: until the panel has answered anew, the
// compositor takes the drop for refused.
void LayerPanelWindow::setEdgeTaken(bool isTaken)
{
    if (std::exchange(m_isEdgeTaken, isTaken) != isTaken)
        applyInputArea();
}

// A drag that came over a panel that slides out would be taken by it, and be lost when it is hidden. It is the strip's.
void LayerPanelWindow::setLeaving(bool isLeaving)
{
    if (std::exchange(m_isLeaving, isLeaving) != isLeaving)
        applyInputArea();
}

// An empty mask means the whole window, so a rectangle beyond it stands for nothing.
void LayerPanelWindow::applyInputArea()
{
    const QSize size = m_resting.size().toSize();
    if (m_isLeaving || m_aside == Aside::untilTheDragLeaves)
        m_window.setMask(QRect(-10, -10, 1, 1));
    else if (m_isEdgeTaken)
        m_window.setMask(QRect(0, 0, size.width() - StripWindow::thickness, size.height()));
    else
        m_window.setMask({});
    tellCompositor();
}

// KWin tells what may be done with the drag of an X11 program only from the second window on that it comes over. One
// that leaves and comes back counts as another.
void LayerPanelWindow::stepAside()
{
    constexpr int most = 5;
    if (m_timesAside == most)
        return;
    ++m_timesAside;
    setAside(Aside::untilTheDragLeaves);
    m_asideEnd.start();
}

// A hand that pauses after the entry moves on only when the panel is no longer aside.
void LayerPanelWindow::dragIsOver(const QDropEvent& event)
{
    m_pointerQuestion.end();
    m_pointer.drag(onDesktop(event.position()));
    const bool hasEntered = event.type() == QEvent::DragEnter;
    if (mustComeAgain(event) && (hasEntered || m_aside == Aside::no))
        stepAside();
    else if (hasEntered)
        setAside(Aside::no);
}

// A Wayland program's drag that offers nothing to do is refused.
bool LayerPanelWindow::mustComeAgain(const QDropEvent& event) const
{
    return event.possibleActions() == Qt::IgnoreAction && !m_isDragElsewhere && isDragOfX11Program
        && isDragOfX11Program();
}

void LayerPanelWindow::dragWasDropped(const QDropEvent& event)
{
    takeEdge();
    m_pointer.move(onDesktop(event.position()));
    m_pointerQuestion.ask(m_window);
}

// The panel may be about to hide, which it does unless the pointer is over it.
void LayerPanelWindow::dragHasLeft()
{
    if (m_aside == Aside::untilTheDragLeaves) {
        setAside(Aside::untilTheDragIsBack);
        return;
    }
    m_timesAside = 0;
    m_pointer.leave();
    // The drag may have been let go here, and refused.
    m_pointerQuestion.ask(m_window);
}

void LayerPanelWindow::asideIsOver()
{
    if (m_aside == Aside::untilTheDragIsBack)
        m_pointer.leave();
    setAside(Aside::no);
}

void LayerPanelWindow::setAside(Aside aside)
{
    if (std::exchange(m_aside, aside) == aside)
        return;
    if (aside == Aside::no)
        m_asideEnd.stop();
    applyInputArea();
}

bool LayerPanelWindow::isShown() const
{
    return m_window.isVisible();
}

bool LayerPanelWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress && !m_heldMouse.isDelivering())
        takeKeyboard();
    if (m_heldMouse.take(*event))
        return true;
    switch (event->type()) {
    case QEvent::FocusIn:
        m_heldMouse.keyboardCame();
        break;
    case QEvent::FocusOut:
        // The user has clicked elsewhere. sway and labwc leave the keys here even then: as long as the surface asks for
        // them, and once it asks for them on demand only, they take them away at once.
        if (!m_popups.isMenuOpen())
            giveKeyboardBack();
        break;
    case QEvent::Enter:
        m_pointerQuestion.end();
        takeEdge();
        m_isPointerInside = true;
        m_pointer.move(onDesktop(static_cast<QEnterEvent*>(event)->position()));
        if (onPointerCame)
            onPointerCame();
        if (onMouseEntered)
            onMouseEntered();
        break;
    case QEvent::MouseMove:
        m_pointerQuestion.end();
        m_pointer.move(onDesktop(static_cast<QMouseEvent*>(event)->position()));
        break;
    case QEvent::DragEnter:
    case QEvent::DragMove:
        dragIsOver(*static_cast<QDropEvent*>(event));
        break;
    case QEvent::Leave:
        // The toolkit says so whenever a menu opens, also of a pointer that rests on the panel. Of that one KWin tells
        // nothing when the menu has closed.
        if (m_popups.isMenuOpening())
            return true;
        m_isPointerInside = false;
        // Where no click elsewhere moves the focus, the keys would stay for ever.
        if (!m_popups.isMenuOpen())
            m_isForKeys = false;
        pointerIsDone();
        m_pointer.leave();
        if (onMouseExited)
            onMouseExited();
        break;
    case QEvent::Drop:
        dragWasDropped(*static_cast<QDropEvent*>(event));
        break;
    case QEvent::DragLeave:
        dragHasLeft();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace nookle
