#include "X11PanelShadow.h"

#include <QImage>
#include <QRect>

#include <xcb/xcb.h>

#include <algorithm>
#include <cmath>

namespace nookle {

namespace {

inline constexpr double opacity = 0.28;
inline constexpr int edgeLength = 8;
inline constexpr double radiiToShadow = 2;
inline constexpr std::uint8_t depth = 32;

/// How far the shadow reaches beyond the panel, in pixels.
[[nodiscard]] int extentFor(int cornerRadius)
{
    return static_cast<int>(std::lround(radiiToShadow * cornerRadius));
}

/// How far a pixel lies outside of a panel that begins at `extent` in both directions, and goes on to the right and
/// downwards. Negative inside.
[[nodiscard]] double distance(int x, int y, int extent, int cornerRadius)
{
    const double center = extent + cornerRadius;
    const double dx = center - (x + 0.5);
    const double dy = center - (y + 0.5);
    if (dx > 0 && dy > 0)
        return std::hypot(dx, dy) - cornerRadius;
    return std::max(dx, dy) - cornerRadius;
}

[[nodiscard]] QRgb shadowAt(double distance, int extent)
{
    if (distance < 0)
        return qRgba(0, 0, 0, 0);
    const double rest = std::clamp(1 - distance / extent, 0.0, 1.0);
    return qRgba(0, 0, 0, static_cast<int>(std::lround(255 * opacity * rest * rest * rest)));
}

/// The upper left corner with a pixel of each adjoining edge. Nothing lies under the panel itself, which may be
/// transparent.
[[nodiscard]] QImage cornerPicture(int cornerRadius)
{
    const int extent = extentFor(cornerRadius);
    const int side = extent + cornerRadius + 1;
    QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            picture.setPixel(x, y, shadowAt(distance(x, y, extent, cornerRadius), extent));
    }
    return picture;
}

[[nodiscard]] QImage nothing()
{
    QImage picture(1, 1, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    return picture;
}

} // namespace

X11PanelShadow::X11PanelShadow(xcb_connection_t* connection, std::uint32_t window)
    : m_connection(connection)
    , m_window(window)
    , m_atoms(connection, { "_KDE_NET_WM_SHADOW" })
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
    if (cornerRadius != m_cornerRadius)
        makePictures(cornerRadius);
    const auto extent = static_cast<std::uint32_t>(extentFor(cornerRadius));
    std::vector<std::uint32_t> numbers = m_pictures;
    // Above, right, below and left of the window.
    numbers.insert(numbers.end(), { extent, 0, extent, extent });
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, m_atoms["_KDE_NET_WM_SHADOW"], XCB_ATOM_CARDINAL,
                        32, static_cast<std::uint32_t>(numbers.size()), numbers.data());
}

void X11PanelShadow::hide()
{
    xcb_delete_property(m_connection, m_window, m_atoms["_KDE_NET_WM_SHADOW"]);
}

void X11PanelShadow::makePictures(int cornerRadius)
{
    freePictures();
    m_cornerRadius = cornerRadius;
    const QImage corner = cornerPicture(cornerRadius);
    const int last = corner.width() - 1;
    const int extent = extentFor(cornerRadius);
    // Of several pixels, because the compositing manager stretches them and mixes the pixels at their ends with others.
    const QImage above = corner.copy(last, 0, 1, extent).scaled(edgeLength, extent);
    const QImage below = above.mirrored(false, true);
    const QImage left = corner.copy(0, last, extent, 1).scaled(extent, edgeLength);
    const QImage upperLeft = corner.copy(0, 0, last, last);
    const QImage lowerLeft = upperLeft.mirrored(false, true);
    // At the screen's edge the shadow just goes on.
    for (const QImage& picture : { above, above, nothing(), below, below, lowerLeft, left, upperLeft })
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
