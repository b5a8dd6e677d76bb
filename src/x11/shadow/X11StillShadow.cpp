#include "X11StillShadow.h"

#include "X11ShadowSurface.h"
#include "XcbAtoms.h"

#include <array>
#include <utility>

#include <xcb/xcb.h>

namespace nookle {

namespace {

/// The hints of a window that takes no focus: which number is set, and that number, which is 0.
inline constexpr std::array<std::uint32_t, 9> takesNoFocus{ 1 };

/// The hints of a window whose place and size have been chosen.
inline constexpr std::array<std::uint32_t, 18> hasItsPlace{ 1 | 2 };

/// Of the decorations, which the first number names, the window wants none.
inline constexpr std::array<std::uint32_t, 5> hasNoFrame{ 2 };

} // namespace

X11StillShadow::X11StillShadow(xcb_connection_t* connection, WindowPlacing placing)
    : m_connection(connection)
    , m_placing(placing)
{
}

X11StillShadow::~X11StillShadow() = default;

void X11StillShadow::setToolWindow(bool isToolWindow)
{
    m_isToolWindow = isToolWindow;
    if (m_dock)
        m_dock->setToolWindow(isToolWindow);
}

// GNOME Shell gives no drags of X11 programs to a window that takes no focus.
void X11StillShadow::setProperties()
{
    const auto set = [this](xcb_atom_t property, xcb_atom_t type, const auto& numbers) {
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_surface->number(), property, type, 32,
                            static_cast<std::uint32_t>(numbers.size()), numbers.data());
    };
    m_dock->setProperties();
    m_dock->setToolWindow(m_isToolWindow);
    set(XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS, takesNoFocus);
    const xcb_atom_t frame = xcbAtom(m_connection, "_MOTIF_WM_HINTS");
    set(frame, frame, hasNoFrame);
    set(XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, hasItsPlace);
}

void X11StillShadow::show(const QRect& panel, int cornerRadius, const QRect& area)
{
    const Shadow shown{ panel, cornerRadius, area };
    if (m_shown != shown) {
        hide();
        m_shown = shown;
        makeWindow();
    }
    if (m_dock)
        m_dock->raise();
}

void X11StillShadow::makeWindow()
{
    m_pictures.emplace(m_shown->cornerRadius);
    const int extent = m_pictures->extent;
    m_frame = m_shown->panel.adjusted(-extent, -extent, 0, extent).intersected(m_shown->area);
    m_surface = X11ShadowSurface::tryCreate(m_connection, m_frame, m_placing);
    if (!m_surface)
        return;
    m_dock.emplace(m_connection, m_surface->number(), m_placing);
    setProperties();
    draw();
    xcb_map_window(m_connection, m_surface->number());
    xcb_flush(m_connection);
}

void X11StillShadow::hide()
{
    m_dock.reset();
    m_surface.reset();
    m_pictures.reset();
    m_shown.reset();
}

void X11StillShadow::slide(int offset)
{
    if (std::exchange(m_offset, offset) == offset || !m_surface)
        return;
    draw();
}

void X11StillShadow::draw()
{
    const QRect panel = m_shown->panel.translated(m_offset, 0);
    m_surface->draw(*m_pictures, panel.translated(-m_frame.topLeft()), m_frame.size());
    xcb_flush(m_connection);
}

} // namespace nookle
