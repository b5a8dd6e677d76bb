#include "X11ReservedSpace.h"

#include "UsableArea.h"
#include "XcbReply.h"
#include "XcbRoot.h"

#include <xcb/xcb.h>

#include <cstddef>
#include <vector>

namespace nookle {

namespace {

inline constexpr const char* strutPartial = "_NET_WM_STRUT_PARTIAL";

inline constexpr std::size_t strutLength = 12;
/// Where the numbers of the left edge stand among them.
inline constexpr std::size_t left = 0;
inline constexpr std::size_t leftStart = 4;
inline constexpr std::size_t leftEnd = 5;

} // namespace

X11ReservedSpace::X11ReservedSpace(xcb_connection_t* connection, std::uint32_t window)
    : m_connection(connection)
    , m_window(window)
    , m_atoms(connection, { strutPartial })
{
}

QSize X11ReservedSpace::desktopSize() const
{
    const xcb_window_t root = rootOf(m_connection);
    const auto reply = owned(xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, root), nullptr));
    return reply ? QSize(reply->width, reply->height) : QSize();
}

bool X11ReservedSpace::isPossible(const QRect& display) const
{
    return !rightStrut(display, display, desktopSize()).empty();
}

void X11ReservedSpace::reserve(const QRect& panel, const QRect& display)
{
    m_strut = rightStrut(panel, display, desktopSize());
    m_isMarked = false;
    tell();
}

void X11ReservedSpace::release()
{
    m_strut.clear();
    m_isMarked = false;
    tell();
}

void X11ReservedSpace::remind()
{
    m_isMarked = !m_isMarked;
    tell();
}

// A window manager fits the windows only when something changes. The mark is a change that takes no space: a strut
// below the desktop.
void X11ReservedSpace::tell()
{
    std::vector<std::uint32_t> numbers = m_strut;
    if (m_isMarked) {
        numbers.resize(strutLength);
        numbers[left] = 1;
        numbers[leftStart] = numbers[leftEnd] = static_cast<std::uint32_t>(desktopSize().height());
    }
    if (numbers.empty())
        xcb_delete_property(m_connection, m_window, m_atoms[strutPartial]);
    else
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, m_atoms[strutPartial], XCB_ATOM_CARDINAL, 32,
                            static_cast<std::uint32_t>(numbers.size()), numbers.data());
    xcb_flush(m_connection);
}

} // namespace nookle
