#include "X11PanelWindow.h"

#include "Compositing.h"
#include "Displays.h"
#include "X11Coordinates.h"
#include "XcbReply.h"
#include "XcbRoot.h"

#include <QRegion>
#include <QWindow>

#include <xcb/shape.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>
#include <vector>

namespace nookle {

namespace {

inline constexpr std::chrono::milliseconds timeToLoseTheFocus{ 100 };
inline constexpr std::chrono::milliseconds timeToSettle{ 600 };

/// The first number of a property; 0 when the window does not have it.
[[nodiscard]] std::uint32_t firstNumber(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property)
{
    const auto numbers = xcbNumbers(connection, window, property);
    return numbers.empty() ? 0 : numbers.front();
}

/// All pixels whose middle lies within the corners' circles. The toolkit's ellipses are smaller, and would cut off the
/// line that the content draws along its edge.
[[nodiscard]] QRegion roundedOnTheLeft(const QSize& size, int radius)
{
    QRegion region(0, radius, size.width(), size.height() - 2 * radius);
    for (int row = 0; row < radius; ++row) {
        const double height = radius - (row + 0.5);
        const int left = qRound(radius - std::sqrt(radius * radius - height * height));
        region += QRect(left, row, size.width() - left, 1);
        region += QRect(left, size.height() - 1 - row, size.width() - left, 1);
    }
    return region;
}

/// The rectangles of a region, four numbers each.
[[nodiscard]] std::vector<std::uint32_t> rectangleNumbers(const QRegion& region)
{
    std::vector<std::uint32_t> numbers;
    for (const QRect& rect : region) {
        for (const int number : { rect.x(), rect.y(), rect.width(), rect.height() })
            numbers.push_back(static_cast<std::uint32_t>(number));
    }
    return numbers;
}

} // namespace

X11PanelWindow::X11PanelWindow(QWindow& window, double cornerRadius, const Displays& displays,
                               const Compositing& compositing, xcb_connection_t* connection)
    : m_window(window)
    , m_cornerRadius(cornerRadius)
    , m_displays(displays)
    , m_compositing(compositing)
    , m_connection(connection)
    , m_atoms(connection,
              { "_KDE_NET_WM_BLUR_BEHIND_REGION", "_NET_ACTIVE_WINDOW", "_NET_WM_STATE", "_NET_WM_STATE_FULLSCREEN" })
    , m_dock(connection, static_cast<xcb_window_t>(window.winId()))
    , m_shadow(connection, static_cast<xcb_window_t>(window.winId()), compositing)
    , m_space(connection, static_cast<xcb_window_t>(window.winId()))
    , m_animation([this](const QRectF& frame) { place(frame); })
{
    m_window.installEventFilter(this);
    m_parking.setSingleShot(true);
    connect(&m_parking, &QTimer::timeout, this, &X11PanelWindow::park);
    m_settling.setSingleShot(true);
    connect(&m_settling, &QTimer::timeout, this, [this] {
        if (hasFocus())
            focusCame();
    });
    park();
    connect(&m_compositing, &Compositing::backdropChanged, this, [this] {
        updateShape();
        m_shadow.compositingChanged();
    });
}

X11PanelWindow::~X11PanelWindow() = default;

void X11PanelWindow::setFrame(const QRectF& frame)
{
    m_animation.stop();
    findDisplay(frame);
    place(frame);
}

// The panel's own display covers the point just left of its frame, both at the start of the slide and at rest.
void X11PanelWindow::findDisplay(const QRectF& frame)
{
    const std::vector<QRectF> frames = m_displays.frames();
    m_display = frameAt(frames, QPointF(frame.left() - 1, frame.center().y())).value_or(frame);
    const QRect own = pixelsFromPoints(m_display, m_display);
    const QRect beyond(own.left() + own.width(), own.top(), own.width(), own.height());
    const bool hasNeighbour = std::any_of(frames.begin(), frames.end(), [&](const QRectF& each) {
        return each != m_display && pixelsFromPoints(each, each).intersects(beyond);
    });
    m_limit = hasNeighbour ? std::optional(beyond.left()) : std::nullopt;
}

void X11PanelWindow::place(const QRectF& frame)
{
    m_frame = frame;
    m_pixels = pixelsFromPoints(frame, m_display);
    updateShape();
    m_dock.moveTo(m_pixels);
    m_shadow.move(m_pixels, m_limit);
}

// The window manager moves the window with a delay, so the window must not be visible at its old place either.
int X11PanelWindow::farthestLeft() const
{
    const auto cookie = xcb_translate_coordinates(m_connection, static_cast<xcb_window_t>(m_window.winId()),
                                                  rootOf(m_connection), 0, 0);
    const auto reply = owned(xcb_translate_coordinates_reply(m_connection, cookie, nullptr));
    return reply ? std::max<int>(reply->dst_x, m_pixels.left()) : m_pixels.left();
}

void X11PanelWindow::updateShape()
{
    const QSize size = m_pixels.size();
    const int width = m_limit ? std::clamp(*m_limit - farthestLeft(), 0, size.width()) : size.width();
    const QRegion shape = outline(size).intersected(QRect(0, 0, width, size.height()));
    if (std::exchange(m_shape, shape) != shape)
        applyShape(shape);
}

// Sent directly to the server: the toolkit's masks consist of points, so the corners would be coarse on displays with
// several pixels a point.
void X11PanelWindow::applyShape(const QRegion& pixels)
{
    const std::vector<std::uint32_t> numbers = rectangleNumbers(pixels);
    std::vector<xcb_rectangle_t> rectangles;
    for (std::size_t index = 0; index + 3 < numbers.size(); index += 4) {
        rectangles.push_back({ static_cast<std::int16_t>(numbers[index]), static_cast<std::int16_t>(numbers[index + 1]),
                               static_cast<std::uint16_t>(numbers[index + 2]),
                               static_cast<std::uint16_t>(numbers[index + 3]) });
    }
    for (const auto kind : { XCB_SHAPE_SK_BOUNDING, XCB_SHAPE_SK_INPUT })
        xcb_shape_rectangles(m_connection, XCB_SHAPE_SO_SET, static_cast<xcb_shape_kind_t>(kind),
                             XCB_CLIP_ORDERING_UNSORTED, static_cast<xcb_window_t>(m_window.winId()), 0, 0,
                             static_cast<std::uint32_t>(rectangles.size()), rectangles.data());
}

// With transparent windows, the content draws its round corners itself, with smooth edges.
QRegion X11PanelWindow::outline(const QSize& size) const
{
    if (m_compositing.backdrop() != Backdrop::opaque)
        return QRect(QPoint(), size);
    return roundedOnTheLeft(size, cornerPixels());
}

int X11PanelWindow::cornerPixels() const
{
    return pixelsFromPoints({ 0, 0, m_cornerRadius, m_cornerRadius }, m_display).width();
}

void X11PanelWindow::askForBlur()
{
    const std::vector<std::uint32_t> numbers = rectangleNumbers(roundedOnTheLeft(m_pixels.size(), cornerPixels()));
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(m_window.winId()),
                        m_atoms["_KDE_NET_WM_BLUR_BEHIND_REGION"], XCB_ATOM_CARDINAL, 32,
                        static_cast<std::uint32_t>(numbers.size()), numbers.data());
}

void X11PanelWindow::orderFront()
{
    m_parking.stop();
    m_settling.stop();
    m_isParked = false;
    if (!m_window.isVisible()) {
        m_dock.setProperties();
        m_window.setVisible(true);
        m_dock.moveTo(m_pixels);
    }
    askForBlur();
    m_shadow.show(cornerPixels());
    // Anew each time: Chromium asks for the shape of a window manager's frame only when it changes, and would go on
    // with the shape that a new frame had while the window was parked.
    m_shape.reset();
    updateShape();
    standAboveFullScreenWindow();
    m_dock.raise();
}

void X11PanelWindow::takeFocus()
{
    m_mayHaveFocus = true;
    m_window.requestActivate();
}

void X11PanelWindow::orderOut()
{
    m_animation.stop();
    // The parked window must not throw a shadow onto the screen.
    m_shadow.hide();
    m_settling.start(timeToSettle);
    if (!m_mayHaveFocus) {
        park();
        return;
    }
    giveFocusBack();
}

void X11PanelWindow::giveFocusBack()
{
    // Hiding the window for a moment makes the window manager give the focus to another window. It also makes the
    // window manager's frame a new one, whose shape Chromium does not learn in time if a drag shows the panel next.
    m_window.setVisible(false);
    m_parking.start(timeToLoseTheFocus);
}

void X11PanelWindow::park()
{
    m_mayHaveFocus = false;
    m_isParked = true;
    const QRect beyondAll = pixelBeyond(m_displays.frames());
    // When the window is shown, the toolkit sets the position and the size that it knows.
    m_window.setGeometry(beyondAll);
    m_dock.moveTo(beyondAll);
    m_dock.setProperties();
    // Some window managers hide it together with the window that it is transient for.
    xcb_delete_property(m_connection, static_cast<xcb_window_t>(m_window.winId()), XCB_ATOM_WM_TRANSIENT_FOR);
    m_window.setVisible(true);
    m_dock.moveTo(beyondAll);
}

// Some window managers put a focused full-screen window above every dock. None puts it above a window that is transient
// for it.
void X11PanelWindow::standAboveFullScreenWindow()
{
    const auto window = static_cast<xcb_window_t>(m_window.winId());
    const xcb_window_t active = firstNumber(m_connection, rootOf(m_connection), m_atoms["_NET_ACTIVE_WINDOW"]);
    const auto states = xcbNumbers(m_connection, active, m_atoms["_NET_WM_STATE"]);
    const xcb_atom_t fullScreen = m_atoms["_NET_WM_STATE_FULLSCREEN"];
    if (active != XCB_WINDOW_NONE && std::find(states.begin(), states.end(), fullScreen) != states.end())
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, 32,
                            1, &active);
    else
        xcb_delete_property(m_connection, window, XCB_ATOM_WM_TRANSIENT_FOR);
}

void X11PanelWindow::reserveSpace(const std::optional<QRectF>& frame)
{
    if (frame)
        m_space.reserve(pixelsFromPoints(*frame, m_display), pixelsFromPoints(m_display, m_display));
    else
        m_space.release();
}

void X11PanelWindow::animateFrame(const QRectF& frame, double seconds, Easing easing, std::function<void()> completion)
{
    findDisplay(frame);
    m_animation.start(m_frame, frame, seconds, easing, m_window.screen(), std::move(completion));
}

// The toolkit may have missed that the window lost the focus and got it again.
bool X11PanelWindow::hasFocus() const
{
    const auto reply = owned(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    return reply && reply->focus == static_cast<xcb_window_t>(m_window.winId());
}

// A window manager that was busy may give the focus only when the window is parked, where nobody would look for it.
void X11PanelWindow::focusCame()
{
    m_mayHaveFocus = true;
    if (std::exchange(m_isParked, false))
        giveFocusBack();
}

bool X11PanelWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn)
        focusCame();
    if (event->type() == QEvent::Move && m_limit)
        updateShape();
    if (event->type() == QEvent::Enter && onMouseEntered)
        onMouseEntered();
    if (event->type() == QEvent::Leave && onMouseExited)
        onMouseExited();
    return QObject::eventFilter(watched, event);
}

} // namespace nookle
