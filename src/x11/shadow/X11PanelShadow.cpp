#include "X11PanelShadow.h"

#include "Compositing.h"
#include "X11ShadowWindow.h"
#include "XcbRoot.h"

#include <QImage>

#include <xcb/xcb.h>

#include <algorithm>

namespace nookle {

namespace {

inline constexpr std::uint8_t depth = 32;

[[nodiscard]] QImage nothing()
{
    QImage picture(1, 1, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    return picture;
}

} // namespace

X11PanelShadow::X11PanelShadow(xcb_connection_t* connection, std::uint32_t window, const Compositing& compositing)
    : m_connection(connection)
    , m_window(window)
    , m_compositing(compositing)
    , m_atoms(connection, { "_KDE_NET_WM_SHADOW", "_NET_SUPPORTED" })
{
}

X11PanelShadow::~X11PanelShadow()
{
    freePictures();
}

void X11PanelShadow::show(int cornerRadius)
{
    if (cornerRadius <= 0)
        return;
    if (!m_shadow || m_cornerRadius != cornerRadius) {
        m_cornerRadius = cornerRadius;
        m_ownWindow.reset();
        freePictures();
        m_shadow.emplace(cornerRadius);
    }
    m_isShown = true;
    compositingChanged();
}

void X11PanelShadow::hide()
{
    m_isShown = false;
    m_ownWindow.reset();
    xcb_delete_property(m_connection, m_window, m_atoms["_KDE_NET_WM_SHADOW"]);
}

void X11PanelShadow::move(const QRect& panel, std::optional<int> limit)
{
    m_panel = panel;
    m_limit = limit;
    if (m_ownWindow)
        updateOwnWindow();
}

void X11PanelShadow::compositingChanged()
{
    if (!m_isShown)
        return;
    describe();
    if (isDrawnHere())
        updateOwnWindow();
    else
        m_ownWindow.reset();
}

// In Wayland sessions the compositor decides what lies above what, and a second window might come between.
bool X11PanelShadow::isDrawnHere() const
{
    if (m_compositing.backdrop() == Backdrop::opaque || qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        return false;
    const xcb_window_t root = rootOf(m_connection);
    const auto supported = xcbNumbers(m_connection, root, m_atoms["_NET_SUPPORTED"]);
    return std::find(supported.begin(), supported.end(), m_atoms["_KDE_NET_WM_SHADOW"]) == supported.end();
}

void X11PanelShadow::updateOwnWindow()
{
    if (!m_ownWindow || m_ownWindow->panelSize() != m_panel.size())
        m_ownWindow = X11ShadowWindow::tryCreate(m_connection, *m_shadow, m_panel);
    if (m_ownWindow)
        m_ownWindow->move(m_panel, m_limit);
}

void X11PanelShadow::describe()
{
    if (m_pictures.empty())
        uploadPictures();
    const auto extent = static_cast<std::uint32_t>(m_shadow->extent);
    std::vector<std::uint32_t> numbers = m_pictures;
    // Above, right, below and left of the window.
    numbers.insert(numbers.end(), { extent, 0, extent, extent });
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, m_atoms["_KDE_NET_WM_SHADOW"], XCB_ATOM_CARDINAL,
                        32, static_cast<std::uint32_t>(numbers.size()), numbers.data());
}

void X11PanelShadow::uploadPictures()
{
    const ShadowPictures& parts = *m_shadow;
    // At the screen's edge the shadow just goes on.
    for (const QImage& picture : { parts.above, parts.above, nothing(), parts.below, parts.below, parts.lowerLeft,
                                   parts.left, parts.upperLeft })
        m_pictures.push_back(upload(picture));
}

void X11PanelShadow::freePictures()
{
    for (const std::uint32_t picture : m_pictures)
        xcb_free_pixmap(m_connection, picture);
    m_pictures.clear();
}

std::uint32_t X11PanelShadow::upload(const QImage& picture)
{
    const auto width = static_cast<std::uint16_t>(picture.width());
    const auto height = static_cast<std::uint16_t>(picture.height());
    const xcb_pixmap_t pixmap = xcb_generate_id(m_connection);
    xcb_create_pixmap(m_connection, depth, pixmap, m_window, width, height);
    const xcb_gcontext_t context = xcb_generate_id(m_connection);
    xcb_create_gc(m_connection, context, pixmap, 0, nullptr);
    xcb_put_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, width, height, 0, 0, 0, depth,
                  static_cast<std::uint32_t>(picture.sizeInBytes()), picture.constBits());
    xcb_free_gc(m_connection, context);
    return pixmap;
}

} // namespace nookle
