#pragma once

#include "ShadowPictures.h"
#include "XcbAtoms.h"

#include <QRect>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

class QImage;
struct xcb_connection_t;

namespace nookle {

class Compositing;
class X11ShadowWindow;

/// The panel's shadow. It lies left of the panel, above and below it: to the right is the screen's edge. KWin draws the
/// shadow that a window describes. Other compositing managers give a transparent panel none, so that this program draws
/// one in a window of its own. Without a compositing manager there is none.
class X11PanelShadow final {
public:
    /// Has no effect until it is shown. All arguments must outlive this object.
    X11PanelShadow(xcb_connection_t* connection, std::uint32_t window, const Compositing& compositing);
    ~X11PanelShadow();
    X11PanelShadow(const X11PanelShadow&) = delete;
    X11PanelShadow& operator=(const X11PanelShadow&) = delete;

    /// Gives the window a shadow for left corners of that radius.
    void show(int cornerRadius);

    /// Takes the shadow away.
    void hide();

    /// Call this when the panel moves to that place, before it is shown too. No part of the shadow is visible from
    /// `limit` on, if there is one.
    void move(const QRect& panel, std::optional<int> limit);

    /// Call this when compositing has begun or ended.
    void compositingChanged();

private:
    [[nodiscard]] bool isDrawnHere() const;
    void describe();
    void updateOwnWindow();
    void uploadPictures();
    void freePictures();
    [[nodiscard]] std::uint32_t upload(const QImage& picture);

    xcb_connection_t* m_connection;
    std::uint32_t m_window;
    const Compositing& m_compositing;
    XcbAtoms m_atoms;
    bool m_isShown = false;
    /// None before the first showing. Kept while the shadow is hidden, as `m_pictures` are.
    std::optional<ShadowPictures> m_shadow;
    /// Null unless this program draws the shadow.
    std::unique_ptr<X11ShadowWindow> m_ownWindow;
    QRect m_panel;
    std::optional<int> m_limit;
    int m_cornerRadius = 0;
    /// Pixmaps of the server: the upper edge and then clockwise, corners and edges in turn.
    std::vector<std::uint32_t> m_pictures;
};

} // namespace nookle
