#pragma once

#include "XcbAtoms.h"

#include <cstdint>
#include <vector>

class QImage;
struct xcb_connection_t;

namespace nookle {

/// The panel's shadow, which the compositing manager draws. Only KWin draws a shadow that a window describes; others
/// ignore the description. The shadow lies left of the panel, above and below it: to the right is the screen's edge.
class X11PanelShadow final {
public:
    /// Has no effect until it is shown. The connection must outlive this object.
    X11PanelShadow(xcb_connection_t* connection, std::uint32_t window);
    ~X11PanelShadow();
    X11PanelShadow(const X11PanelShadow&) = delete;
    X11PanelShadow& operator=(const X11PanelShadow&) = delete;

    /// Gives the window a shadow for left corners of that radius, which is in pixels.
    void show(int cornerRadius);

    /// Takes the shadow away.
    void hide();

private:
    void makePictures(int cornerRadius);
    void freePictures();
    [[nodiscard]] std::uint32_t upload(const QImage& picture);

    xcb_connection_t* m_connection;
    std::uint32_t m_window;
    XcbAtoms m_atoms;
    /// The corner radius that the pictures are for; 0 when there are none.
    int m_cornerRadius = 0;
    /// Pixmaps of the server: the upper edge and then clockwise, corners and edges in turn.
    std::vector<std::uint32_t> m_pictures;
};

} // namespace nookle
