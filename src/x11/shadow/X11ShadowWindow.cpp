#include "X11ShadowWindow.h"

#include "ShadowPictures.h"
#include "X11ShadowSurface.h"
#include "XcbAtoms.h"

#include <algorithm>
#include <utility>
#include <vector>

#include <xcb/shape.h>
#include <xcb/xcb.h>

namespace nookle {

std::unique_ptr<X11ShadowWindow> X11ShadowWindow::tryCreate(xcb_connection_t* connection,
                                                            const ShadowPictures& pictures, const QRect& panel)
{
    const int extent = pictures.extent;
    const bool hasEdges = panel.width() > 0 && panel.height() > 2 * (pictures.corner - extent);
    if (!hasEdges)
        return nullptr;
    // The window manager leaves such a window alone.
    const QRect frame = panel.adjusted(-extent, -extent, 0, extent);
    auto surface = X11ShadowSurface::tryCreate(connection, frame, WindowPlacing::program);
    if (!surface)
        return nullptr;
    surface->draw(pictures, { QPoint(extent, extent), panel.size() }, frame.size());
    std::unique_ptr<X11ShadowWindow> made(new X11ShadowWindow(connection, pictures, panel.size(), std::move(surface)));
    made->setKind();
    return made;
}

X11ShadowWindow::X11ShadowWindow(xcb_connection_t* connection, const ShadowPictures& pictures, const QSize& panel,
                                 std::unique_ptr<X11ShadowSurface> surface)
    : m_connection(connection)
    , m_extent(pictures.extent)
    , m_corner(pictures.corner)
    , m_panel(panel)
    , m_surface(std::move(surface))
{
}

X11ShadowWindow::~X11ShadowWindow() = default;

// A kind of window to which compositing managers give no shadow of their own.
void X11ShadowWindow::setKind()
{
    const xcb_atom_t kind = xcbAtom(m_connection, "_NET_WM_WINDOW_TYPE_DND");
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_surface->number(),
                        xcbAtom(m_connection, "_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM, 32, 1, &kind);
}

void X11ShadowWindow::move(const QRect& panel, std::optional<int> limit)
{
    const QPoint at = panel.topLeft() - QPoint(m_extent, m_extent);
    setShape(limit ? std::optional(*limit - at.x()) : std::nullopt);
    const std::uint32_t values[] = { static_cast<std::uint32_t>(at.x()), static_cast<std::uint32_t>(at.y()) };
    xcb_configure_window(m_connection, m_surface->number(), XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, values);
    xcb_map_window(m_connection, m_surface->number());
    xcb_flush(m_connection);
}

// Without the middle, so that the panel is never below the window, whichever was raised last.
void X11ShadowWindow::setShape(std::optional<int> width)
{
    const int whole = m_extent + m_panel.width();
    const int shown = std::clamp(width.value_or(whole), 0, whole);
    if (m_shownWidth == shown)
        return;
    m_shownWidth = shown;
    const int height = m_panel.height() + 2 * m_extent;
    std::vector<xcb_rectangle_t> parts;
    for (const QRect& part : { QRect(0, 0, shown, m_corner), QRect(0, height - m_corner, shown, m_corner),
                               QRect(0, m_corner, std::min(m_extent, shown), height - 2 * m_corner) })
        parts.push_back({ static_cast<std::int16_t>(part.x()), static_cast<std::int16_t>(part.y()),
                          static_cast<std::uint16_t>(part.width()), static_cast<std::uint16_t>(part.height()) });
    xcb_shape_rectangles(m_connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, XCB_CLIP_ORDERING_UNSORTED,
                         m_surface->number(), 0, 0, static_cast<std::uint32_t>(parts.size()), parts.data());
}

} // namespace nookle
