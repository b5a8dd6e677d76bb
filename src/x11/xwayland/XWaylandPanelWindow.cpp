#include "XWaylandPanelWindow.h"

#include "Displays.h"
#include "DragForwarding.h"
#include "DragStrip.h"
#include "ForeignDrags.h"
#include "MutterVersion.h"
#include "SeenPointer.h"
#include "X11Coordinates.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QEnterEvent>
#include <QMouseEvent>
#include <QResizeEvent>
#include <QWindow>

#include <algorithm>
#include <chrono>
#include <utility>

namespace nookle {

namespace {

inline constexpr std::chrono::milliseconds timeToLoseTheFocus{ 100 };
inline constexpr int mostFocusReturns = 3;

/// An even number, after which all is as without them.
inline constexpr int reminders = 4;
inline constexpr std::chrono::milliseconds timeBetweenReminders{ 500 };

/// More points than any panel is wide.
inline constexpr double outOfSight = 10000;

/// The compositor tells where the pointer is after a drop only once it moves again.
inline constexpr std::chrono::milliseconds timeToTellOfThePointer{ 1500 };

} // namespace

XWaylandPanelWindow::XWaylandPanelWindow(QWindow& window, double cornerRadius, const Services& services,
                                         xcb_connection_t* connection, WindowPlacing placing)
    : m_window(window)
    , m_cornerRadius(cornerRadius)
    , m_services(services)
    , m_connection(connection)
    , m_dock(connection, static_cast<std::uint32_t>(window.winId()), placing)
    , m_shadow(connection, placing)
    , m_space(connection, static_cast<std::uint32_t>(window.winId()))
    , m_lostPointer(window, connection)
    , m_menu(window, services.queue)
    , m_animation([this](const QRectF& frame) { place(frame); })
{
    m_window.installEventFilter(this);
    m_menu.isPointerLost = [this](const QWindow& menu) { return m_lostPointer.isLostIn(menu); };
    m_menu.onAbandoned = [this] { m_isPointerElsewhere = true; };
    m_parking.setSingleShot(true);
    connect(&m_parking, &QTimer::timeout, this, &XWaylandPanelWindow::park);
    connect(&m_reminding, &QTimer::timeout, this, &XWaylandPanelWindow::remindOfSpace);
    m_afterDrop.setSingleShot(true);
    m_afterDrop.setInterval(timeToTellOfThePointer);
    connect(&m_afterDrop, &QTimer::timeout, this, [this] { m_services.pointer.leave(); });
}

XWaylandPanelWindow::~XWaylandPanelWindow() = default;

void XWaylandPanelWindow::expectFrame(const QRectF& frame)
{
    findDisplay(frame);
    place(frame.translated(frame.width(), 0));
    park();
}

void XWaylandPanelWindow::setFrame(const QRectF& frame)
{
    m_animation.stop();
    findDisplay(frame);
    place(frame);
    if (m_isShown)
        orderFront();
}

// The panel's own display covers the point just left of its frame, both at the start of the slide and at rest.
void XWaylandPanelWindow::findDisplay(const QRectF& frame)
{
    m_display = frameAt(m_services.displays.frames(), QPointF(frame.left() - 1, frame.center().y())).value_or(frame);
    m_right = m_services.displays.visibleFrame(m_display).right();
}

void XWaylandPanelWindow::place(const QRectF& frame)
{
    m_frame = frame;
    m_resting = frame.translated(m_right - frame.right(), 0);
    moveContent();
}

// A parked window has no content that could be drawn.
void XWaylandPanelWindow::moveContent()
{
    if (!m_isShown)
        return;
    const double offset = std::max(0.0, m_frame.left() - m_resting.left());
    if (onContentMoved)
        onContentMoved(offset);
    m_shadow.slide(pixels(offset));
}

int XWaylandPanelWindow::pixels(double points) const
{
    return pixelsFromPoints({ 0, 0, points, points }, m_display).width();
}

// The shadow lies below the strips, so that nothing comes between them and a drag at the edge. Only now does the
// version matter, which a compositor that has just started may write later than this program starts.
void XWaylandPanelWindow::showShadow()
{
    if (!m_keepsInputShapes)
        m_keepsInputShapes = keepsInputShapes(mutterVersion(m_connection));
    if (!*m_keepsInputShapes)
        return;
    m_shadow.show(pixelsFromPoints(m_resting, m_display), pixels(m_cornerRadius),
                  pixelsFromPoints(m_services.displays.visibleFrame(m_display), m_display));
    if (onShadowRaised)
        onShadowRaised();
}

void XWaylandPanelWindow::orderFront()
{
    m_parking.stop();
    if (!std::exchange(m_isShown, true))
        m_isPointerElsewhere = true;
    setGeometry(m_resting.toRect());
    if (!m_window.isVisible()) {
        m_dock.setProperties();
        m_window.setVisible(true);
    }
    m_dock.moveTo(pixelsFromPoints(m_resting, m_display));
    updateInputShape();
    setToolWindow(!m_hasReservedSpace);
    moveContent();
    showShadow();
    m_dock.raise();
}

void XWaylandPanelWindow::takeFocus()
{
    m_dock.takeFocus();
}

void XWaylandPanelWindow::orderOut()
{
    m_animation.stop();
    m_isShown = false;
    m_shadow.hide();
    m_afterDrop.stop();
    m_services.pointer.leave();
    setToolWindow(false);
    m_focusReturns = 0;
    giveFocusBack();
}

// GNOME Shell pushes every window but a dock out of reserved space. A drag of an X11 program, which it hands to what
// lies below a dock, reaches the dock nevertheless: there is no window below it.
void XWaylandPanelWindow::reserveSpace(const std::optional<QRectF>& frame)
{
    const QRect display = pixelsFromPoints(m_display, m_display);
    const bool reserves = frame && m_space.isPossible(display);
    if (!reserves && !m_hasReservedSpace)
        return;
    m_hasReservedSpace = reserves;
    if (onSpaceReserved)
        onSpaceReserved(reserves ? std::optional(m_display) : std::nullopt);
    if (reserves) {
        setToolWindow(false);
        m_space.reserve(pixelsFromPoints(*frame, m_display), display);
    } else {
        m_space.release();
        setToolWindow(m_isShown);
    }
    m_remindersLeft = reminders;
    m_reminding.start(timeBetweenReminders);
    if (!m_isShown)
        return;
    m_dock.moveTo(pixelsFromPoints(m_resting, m_display));
    updateInputShape();
}

// GNOME Shell forgets to fit a maximised window of a Wayland program that answers to a change of its focus just then,
// as it does after a click on the pin.
void XWaylandPanelWindow::remindOfSpace()
{
    m_space.remind();
    if (--m_remindersLeft == 0)
        m_reminding.stop();
}

// Hiding the window for a moment makes the compositor give the focus to another window, if the panel has it.
void XWaylandPanelWindow::giveFocusBack()
{
    m_window.setVisible(false);
    m_parking.start(timeToLoseTheFocus);
}

void XWaylandPanelWindow::setToolWindow(bool isToolWindow)
{
    m_dock.setToolWindow(isToolWindow);
    m_shadow.setToolWindow(isToolWindow);
}

// The parked window has the size in which it will be shown. GNOME Shell draws nothing of a window that gets another
// size before it was drawn once: the shell waits with the content until it has drawn the window in its new size, and
// draws no window without content.
void XWaylandPanelWindow::park()
{
    if (onContentMoved)
        onContentMoved(outOfSight);
    const QPoint beyondAll = pixelBeyond(m_services.displays.frames()).topLeft();
    // When the window is shown, the toolkit sets the position that it knows, and the size that the widget has.
    setGeometry(QRect(beyondAll, m_resting.toRect().size()));
    m_dock.setProperties();
    updateInputShape();
    m_window.setVisible(true);
    m_dock.moveTo(QRect(beyondAll, pixelsFromPoints(m_resting, m_display).size()));
}

// The toolkit would tell the widget of its size only when the server has confirmed it.
void XWaylandPanelWindow::setGeometry(const QRect& points)
{
    m_window.setGeometry(points);
    QResizeEvent resized(points.size(), m_window.size());
    QCoreApplication::sendEvent(&m_window, &resized);
}

void XWaylandPanelWindow::setEdgeTaken(bool isTaken)
{
    m_isEdgeTaken = isTaken;
    if (m_isShown)
        updateInputShape();
}

// A drag that is let go on the strip without a further movement would be lost if the panel took its place, even for a
// moment. So the parked panel leaves it free already.
void XWaylandPanelWindow::updateInputShape()
{
    const bool isEdgeFree = !m_isShown || (m_isEdgeTaken && !m_hasReservedSpace);
    const double edge = isEdgeFree ? DragStrip::thickness : 0;
    const QRect window = pixelsFromPoints(m_resting, m_display);
    const QRect taken = pixelsFromPoints(m_resting.adjusted(0, 0, -edge, 0), m_display);
    m_dock.setInputShape(taken.translated(-window.topLeft()));
}

// The panel slides on the display that `setFrame` has put it on. That display's usable area is not asked for again: the
// compositor tells only some time later that space was given back.
void XWaylandPanelWindow::animateFrame(const QRectF& frame, double seconds, Easing easing,
                                       std::function<void()> completion)
{
    m_animation.start(m_frame, frame, seconds, easing, m_window.screen(), std::move(completion));
}

// A drag that another window covers for a moment leaves, and is told to have come back only with its next movement.
void XWaylandPanelWindow::handleDragElsewhere(QDropEvent& event, const QPointF& position)
{
    if (!m_isShown) {
        event.ignore();
        return;
    }
    const bool isDrop = event.type() == QEvent::Drop;
    if (isDrop && !m_hasDragElsewhere) {
        QDragEnterEvent again(event.position().toPoint(), event.possibleActions(), event.mimeData(), event.buttons(),
                              event.modifiers());
        forwardDrag(again, m_window, m_resting, position);
    }
    m_hasDragElsewhere = !isDrop;
    forwardDrag(event, m_window, m_resting, position);
}

void XWaylandPanelWindow::dragHasLeftElsewhere()
{
    m_hasDragElsewhere = false;
    if (!m_isShown)
        return;
    forwardDragLeave(m_window);
}

QPointF XWaylandPanelWindow::onDesktop(const QPointF& position) const
{
    return m_resting.topLeft() + position;
}

void XWaylandPanelWindow::handleDrag(const QDropEvent& event)
{
    const QPointF position = onDesktop(event.position());
    if (event.type() != QEvent::Drop) {
        m_services.pointer.drag(position);
        return;
    }
    m_isPointerElsewhere = false;
    m_services.pointer.move(position);
    m_afterDrop.start();
    m_services.drags.end();
}

// While the pointer is over a Wayland program, the X server says that it is where it was last: when the panel comes to
// that place, and when a menu has closed there.
void XWaylandPanelWindow::pointerCame(const QPointF& position)
{
    m_afterDrop.stop();
    m_services.pointer.move(onDesktop(position));
    if (onMouseEntered)
        onMouseEntered();
}

// No compositor lets the pointer move over a window while a drag of another program is under way.
void XWaylandPanelWindow::pointerMoved(const QPointF& position)
{
    if (std::exchange(m_isPointerElsewhere, false))
        pointerCame(position);
    m_afterDrop.stop();
    m_services.drags.end();
    m_services.pointer.move(onDesktop(position));
}

void XWaylandPanelWindow::pointerLeft()
{
    m_services.pointer.leave();
    if (!m_isPointerElsewhere && onMouseExited)
        onMouseExited();
}

bool XWaylandPanelWindow::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
        // A compositor that was busy may give the focus only when the window is parked, where nobody looks for it. One
        // that gives it to each window that comes would take it from the user without end.
        if (!m_isShown && m_focusReturns++ < mostFocusReturns)
            giveFocusBack();
        break;
    case QEvent::Enter:
        if (!m_isPointerElsewhere)
            pointerCame(static_cast<QEnterEvent*>(event)->position());
        break;
    case QEvent::MouseMove:
        pointerMoved(static_cast<QMouseEvent*>(event)->position());
        break;
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        handleDrag(static_cast<const QDropEvent&>(*event));
        break;
    case QEvent::Leave:
        pointerLeft();
        break;
    case QEvent::DragLeave:
        m_services.pointer.leave();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace nookle
