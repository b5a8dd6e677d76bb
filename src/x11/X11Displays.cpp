#include "X11Displays.h"

#include "UsableArea.h"
#include "X11Coordinates.h"
#include "XcbReply.h"

#include <xcb/randr.h>
#include <xcb/xcb.h>

#include <algorithm>

namespace nookle {

namespace {

inline constexpr const char* clientList = "_NET_CLIENT_LIST";
inline constexpr const char* currentDesktop = "_NET_CURRENT_DESKTOP";
inline constexpr const char* strut = "_NET_WM_STRUT";
inline constexpr const char* strutPartial = "_NET_WM_STRUT_PARTIAL";
inline constexpr const char* workAreas = "_NET_WORKAREA";

} // namespace

X11Displays::X11Displays(xcb_connection_t* connection, std::uint32_t root)
    : m_connection(connection)
    , m_root(root)
    , m_atoms(connection, { clientList, currentDesktop, strut, strutPartial, workAreas })
{
}

std::vector<X11Displays::Monitor> X11Displays::monitors() const
{
    std::vector<Monitor> found;
    const auto cookie = xcb_randr_get_monitors(m_connection, m_root, 1);
    const auto reply = owned(xcb_randr_get_monitors_reply(m_connection, cookie, nullptr));
    if (reply) {
        for (auto each = xcb_randr_get_monitors_monitors_iterator(reply.get()); each.rem > 0;
             xcb_randr_monitor_info_next(&each)) {
            const auto& monitor = *each.data;
            found.push_back(
                { QRect(monitor.x, monitor.y, monitor.width, monitor.height), monitor.primary != 0, monitor.name });
        }
    }
    if (found.empty() && !desktopSize().isEmpty())
        found.push_back({ QRect(QPoint(0, 0), desktopSize()), true });
    return found;
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
// area of all, so then only the struts are used.
QRect X11Displays::usable(const QRect& monitor, std::size_t monitorCount) const
{
    const QSize desktop = desktopSize();
    std::vector<Strut> struts;
    for (const std::uint32_t window : xcbNumbers(m_connection, m_root, m_atoms[clientList])) {
        auto numbers = xcbNumbers(m_connection, window, m_atoms[strutPartial]);
        if (numbers.empty())
            numbers = xcbNumbers(m_connection, window, m_atoms[strut]);
        if (!numbers.empty())
            struts.push_back(Strut::fromNumbers(numbers, desktop));
    }
    const QRect area = usableArea(monitor, desktop, struts);
    if (monitorCount > 1)
        return area;
    const QRect common = area.intersected(workArea().value_or(area));
    return common.isEmpty() ? area : common;
}

std::vector<QRectF> X11Displays::frames() const
{
    std::vector<QRectF> found;
    for (const Monitor& monitor : monitors())
        found.push_back(pointsFromPixels(monitor.frame));
    return found;
}

std::optional<QRectF> X11Displays::mainFrame() const
{
    const auto found = monitors();
    if (found.empty())
        return std::nullopt;
    const auto primary = std::find_if(found.begin(), found.end(), [](const Monitor& each) { return each.isPrimary; });
    return pointsFromPixels((primary == found.end() ? found.front() : *primary).frame);
}

std::optional<X11Displays::Monitor> X11Displays::monitor(const QRectF& frame) const
{
    const auto found = monitors();
    const auto monitor = std::find_if(found.begin(), found.end(),
                                      [&](const Monitor& each) { return pointsFromPixels(each.frame) == frame; });
    return monitor == found.end() ? std::nullopt : std::optional(*monitor);
}

QString X11Displays::identity(const QRectF& frame) const
{
    const auto found = monitor(frame);
    if (!found)
        return {};
    const auto reply =
        owned(xcb_get_atom_name_reply(m_connection, xcb_get_atom_name(m_connection, found->name), nullptr));
    return reply ? QString::fromLatin1(xcb_get_atom_name_name(reply.get()), xcb_get_atom_name_name_length(reply.get()))
                 : QString();
}

QRectF X11Displays::visibleFrame(const QRectF& frame) const
{
    const auto found = monitor(frame);
    return found ? pointsFromPixels(usable(found->frame, monitors().size())) : frame;
}

} // namespace nookle
