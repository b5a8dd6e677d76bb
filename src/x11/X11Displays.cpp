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

std::optional<QRect> X11Displays::workArea() const
{
    const auto areas = xcbNumbers(m_connection, m_root, m_atoms[workAreas]);
    const auto desktops = xcbNumbers(m_connection, m_root, m_atoms[currentDesktop]);
    const std::size_t first = desktops.empty() ? 0 : std::size_t{ desktops.front() } * 4;
    if (areas.size() < first + 4)
        return std::nullopt;
    const auto number = [&](std::size_t index) { return static_cast<int>(areas[first + index]); };
    return QRect(number(0), number(1), number(2), number(3));
}

// The work area is one rectangle for the whole desktop. With several displays, a panel on one of them reduces the work
// area of all, so then only the struts are used; and while the shelf reserves space itself, which it may use.
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
    if (QGuiApplication::screens().size() > 1 || isOwnReserved)
        return area;
    const QRect common = area.intersected(workArea().value_or(area));
    return common.isEmpty() ? area : common;
}

QRectF X11Displays::visibleFrame(const QRectF& frame) const
{
    return screenOf(frame) ? pointsFromPixels(usable(pixelsFromPoints(frame, frame))) : frame;
}

} // namespace nookle
