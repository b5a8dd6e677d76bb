#pragma once

#include "X11DockWindow.h"

#include <QRect>

#include <cstdint>
#include <memory>

struct xcb_connection_t;

namespace nookle {

struct ShadowPictures;

/// A window that shows a shadow: with an opacity for each pixel, and open to the pointer. Its picture takes memory of
/// the server. Main thread only.
class X11ShadowSurface final {
public:
    /// A window that is not shown yet. `frame` is in pixels of the root window. Null if the server has no transparent
    /// windows. The connection must outlive the window.
    [[nodiscard]] static std::unique_ptr<X11ShadowSurface> tryCreate(xcb_connection_t* connection, const QRect& frame,
                                                                     WindowPlacing placing);
    ~X11ShadowSurface();
    X11ShadowSurface(const X11ShadowSurface&) = delete;
    X11ShadowSurface& operator=(const X11ShadowSurface&) = delete;

    /// The window's number on the server.
    [[nodiscard]] std::uint32_t number() const { return m_window; }

    /// Draws the shadow of a panel at that place of the window, which has that size.
    void draw(const ShadowPictures& pictures, const QRect& panel, const QSize& size);

private:
    explicit X11ShadowSurface(xcb_connection_t* connection);

    void create(const QRect& frame, std::uint32_t visual, WindowPlacing placing);

    xcb_connection_t* m_connection;
    std::uint32_t m_window;
    std::uint32_t m_colors;
};

} // namespace nookle
