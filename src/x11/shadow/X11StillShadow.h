#pragma once

#include "ShadowPictures.h"
#include "X11DockWindow.h"

#include <QRect>

#include <memory>
#include <optional>

struct xcb_connection_t;

namespace nookle {

class X11ShadowSurface;

/// The shadow of a panel whose window does not move. The window of the shadow does not move either: its picture slides
/// with the content of the panel. It ends with the panel's right edge, so that nothing of it shows on another display.
/// Main thread only.
class X11StillShadow final {
public:
    /// Has no effect until it is shown. The connection must outlive this object.
    X11StillShadow(xcb_connection_t* connection, WindowPlacing placing);
    ~X11StillShadow();
    X11StillShadow(const X11StillShadow&) = delete;
    X11StillShadow& operator=(const X11StillShadow&) = delete;

    /// Shows the shadow of a panel at that place, with left corners of that radius, as far as the shadow lies within
    /// `area`. All is in pixels. It lies above the windows of its kind: raise the panel afterwards.
    void show(const QRect& panel, int cornerRadius, const QRect& area);

    /// Call this with each change of the panel's kind of window, so that both lie in the same layer.
    void setToolWindow(bool isToolWindow);

    /// Takes the shadow away, with its window and its picture.
    void hide();

    /// Draws the shadow of a content that is `offset` pixels to the right of its place in the panel.
    void slide(int offset);

private:
    /// What is shown.
    struct Shadow {
        QRect panel;
        int cornerRadius;
        QRect area;

        [[nodiscard]] bool operator==(const Shadow& other) const = default;
    };

    void makeWindow();
    void setProperties();
    void draw();

    xcb_connection_t* m_connection;
    WindowPlacing m_placing;
    bool m_isToolWindow = false;
    /// These four are there only while the shadow is shown; the last two not if the server has no transparent windows.
    std::optional<Shadow> m_shown;
    std::optional<ShadowPictures> m_pictures;
    std::unique_ptr<X11ShadowSurface> m_surface;
    std::optional<X11DockWindow> m_dock;
    /// The window's place on the root window.
    QRect m_frame;
    int m_offset = 0;
};

} // namespace nookle
