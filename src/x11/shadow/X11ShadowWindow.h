#pragma once

#include <QRect>
#include <QSize>

#include <memory>
#include <optional>

struct xcb_connection_t;

namespace nookle {

class X11ShadowSurface;
struct ShadowPictures;

/// A shadow that this program draws itself: a window around the panel that takes no input, leaves out what lies below
/// the panel, and moves with it. It exists only while the shadow is shown, since its picture takes memory of the
/// server.
class X11ShadowWindow final {
public:
    /// Null if the server has no transparent windows. The connection must outlive the window.
    [[nodiscard]] static std::unique_ptr<X11ShadowWindow> tryCreate(xcb_connection_t* connection,
                                                                    const ShadowPictures& pictures, const QRect& panel);
    ~X11ShadowWindow();
    X11ShadowWindow(const X11ShadowWindow&) = delete;
    X11ShadowWindow& operator=(const X11ShadowWindow&) = delete;

    /// The size of `panel` must be that of the creation. No part is visible from `limit` on, if there is one.
    void move(const QRect& panel, std::optional<int> limit);

    [[nodiscard]] QSize panelSize() const { return m_panel; }

private:
    X11ShadowWindow(xcb_connection_t* connection, const ShadowPictures& pictures, const QSize& panel,
                    std::unique_ptr<X11ShadowSurface> surface);

    void setKind();
    void setShape(std::optional<int> width);

    xcb_connection_t* m_connection;
    int m_extent;
    int m_corner;
    QSize m_panel;
    std::unique_ptr<X11ShadowSurface> m_surface;
    /// The width that the shape was set for last.
    std::optional<int> m_shownWidth;
};

} // namespace nookle
