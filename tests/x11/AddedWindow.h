#pragma once

#include <QRect>

#include <optional>
#include <vector>

#include <xcb/shape.h>

namespace nookle {

/// Looks at a window that was made on a server without a window manager.
class AddedWindow {
public:
    /// What is there now was not added. The connection must outlive this object.
    explicit AddedWindow(xcb_connection_t* connection);

    /// None if there is no window more than before.
    [[nodiscard]] std::optional<xcb_window_t> find() const;

    [[nodiscard]] QRect frame(xcb_window_t window) const;
    [[nodiscard]] std::vector<QRect> shape(xcb_window_t window, xcb_shape_sk_t kind) const;
    [[nodiscard]] bool isShown(xcb_window_t window) const;
    /// Whether the window manager would leave it alone.
    [[nodiscard]] bool isLeftAlone(xcb_window_t window) const;

private:
    [[nodiscard]] std::vector<xcb_window_t> topLevelWindows() const;

    xcb_connection_t* m_connection;
    std::vector<xcb_window_t> m_before;
};

} // namespace nookle
