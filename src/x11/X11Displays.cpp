#include "X11Displays.h"

#include "UsableArea.h"
#include "X11Coordinates.h"
#include "XcbReply.h"

#include <QGuiApplication>
#include <QWindow>

#include <algorithm>

#include <xcb/xcb.h>

namespace nookle {

namespace {

inline constexpr const char* clientList = "_NET_CLIENT_LIST";
inline constexpr const char* currentDesktop = "_NET_CURRENT_DESKTOP";
inline constexpr const char* strut = "_NET_WM_STRUT";
inline constexpr const char* strutPartial = "_NET_WM_STRUT_PARTIAL";
inline constexpr const char* workAreas = "_NET_WORKAREA";

[[nodiscard]] bool isOfThisProgram(std::uint32_t window)
{
    const QWindowList own = QGuiApplication::topLevelWindows();
    return std::any_of(own.begin(), own.end(),
                       [window](const QWindow* each) { return each->handle() && each->winId() == window; });
}

/// The property with the work area of each display, of one workspace.
[[nodiscard]] QByteArray displayWorkAreas(std::uint32_t desktop)
{
    return "_GTK_WORKAREAS_D" + QByteArray::number(desktop);
}

/// The rectangles that a list of numbers consists of, four numbers each.
[[nodiscard]] std::vector<QRect> rectangles(const std::vector<std::uint32_t>& numbers)
{
    std::vector<QRect> found;
    for (std::size_t index = 0; index + 3 < numbers.size(); index += 4) {
        const auto number = [&](std::size_t offset) { return static_cast<int>(numbers[index + offset]); };
        found.emplace_back(number(0), number(1), number(2), number(3));
    }
    return found;
}

} // namespace

X11Displays::X11Displays(xcb_connection_t* connection, std::uint32_t root)
    : m_connection(connection)
    , m_root(root)
    , m_atoms(connection, { clientList, currentDesktop, strut, strutPartial, workAreas })
{
}

QSize X11Displays::desktopSize() const
{
    const auto reply = owned(xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, m_root), nullptr));
    return reply ? QSize(reply->width, reply->height) : QSize();
}

std::uint32_t X11Displays::presentDesktop() const
{
    const auto desktops = xcbNumbers(m_connection, m_root, m_atoms[currentDesktop]);
    return desktops.empty() ? 0 : desktops.front();
}

std::optional<QRect> X11Displays::commonWorkArea() const
{
    const auto areas = rectangles(xcbNumbers(m_connection, m_root, m_atoms[workAreas]));
    const std::size_t desktop = presentDesktop();
    return desktop < areas.size() ? std::optional(areas[desktop]) : std::nullopt;
}

// Only some window managers know one for each display. GNOME Shell's own panels reserve their space in no other way.
std::optional<QRect> X11Displays::ownWorkArea(const QRect& display) const
{
    const auto property = xcbAtom(m_connection, displayWorkAreas(presentDesktop()));
    for (const QRect& area : rectangles(xcbNumbers(m_connection, m_root, property))) {
        if (display.contains(area))
            return area;
    }
    return std::nullopt;
}

// The usual work area is one rectangle for the whole desktop. With several displays, a panel on one of them reduces it
// for all, so then only the struts are used. What the shelf reserves itself, at the right edge, it may use.
QRect X11Displays::usable(const QRect& display) const
{
    const QSize desktop = desktopSize();
    std::vector<Strut> struts;
    bool isOwnReserved = false;
    for (const std::uint32_t window : xcbNumbers(m_connection, m_root, m_atoms[clientList])) {
        auto numbers = xcbNumbers(m_connection, window, m_atoms[strutPartial]);
        if (numbers.empty())
            numbers = xcbNumbers(m_connection, window, m_atoms[strut]);
        const bool isOwn = isOfThisProgram(window);
        if (isOwn)
            isOwnReserved = isOwnReserved || !numbers.empty();
        else if (!numbers.empty())
            struts.push_back(Strut::fromNumbers(numbers, desktop));
    }
    const QRect area = usableArea(display, desktop, struts);
    if (std::optional<QRect> own = ownWorkArea(display)) {
        if (isOwnReserved)
            own->setRight(area.right());
        return own->intersected(area).isEmpty() ? area : own->intersected(area);
    }
    if (QGuiApplication::screens().size() > 1 || isOwnReserved)
        return area;
    const QRect common = area.intersected(commonWorkArea().value_or(area));
    return common.isEmpty() ? area : common;
}

QRectF X11Displays::visibleFrame(const QRectF& frame) const
{
    return screenOf(frame) ? pointsFromPixels(usable(pixelsFromPoints(frame, frame))) : frame;
}

} // namespace nookle
