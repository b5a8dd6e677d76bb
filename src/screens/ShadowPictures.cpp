#include "ShadowPictures.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace nookle {

namespace {

inline constexpr double opacity = 0.28;
inline constexpr int edgeLength = 8;

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

/// The share of a pixel that the panel leaves free.
[[nodiscard]] double freeShare(double distance)
{
    return std::clamp(distance + 0.5, 0.0, 1.0);
}

// The panel covers a part of each pixel along its round corners, and the shadow covers the rest. Without that there are
// gaps between the two, or both darken the same pixels.
[[nodiscard]] QRgb shadowAt(double distance, int extent)
{
    const double rest = std::clamp(1 - distance / extent, 0.0, 1.0);
    return qRgba(0, 0, 0, static_cast<int>(std::lround(255 * opacity * rest * rest * rest * freeShare(distance))));
}

/// The upper left corner with a pixel of each adjoining edge. Nothing lies under the panel itself, which may be
/// transparent.
[[nodiscard]] QImage cornerPicture(int cornerRadius)
{
    const int extent = ShadowPictures::extentFor(cornerRadius);
    const int side = extent + cornerRadius + 1;
    QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            picture.setPixel(x, y, shadowAt(distance(x, y, extent, cornerRadius), extent));
    }
    return picture;
}

} // namespace

ShadowPictures::ShadowPictures(int cornerRadius)
    : extent(extentFor(cornerRadius))
    , corner(extent + cornerRadius)
{
    const QImage picture = cornerPicture(cornerRadius);
    const int last = picture.width() - 1;
    // Of several pixels, because compositing managers stretch them and mix the pixels at their ends with others.
    above = picture.copy(last, 0, 1, extent).scaled(edgeLength, extent);
    below = above.mirrored(false, true);
    left = picture.copy(0, last, extent, 1).scaled(extent, edgeLength);
    upperLeft = picture.copy(0, 0, last, last);
    lowerLeft = upperLeft.mirrored(false, true);
}

std::array<ShadowPictures::Part, 5> ShadowPictures::parts(const QRect& panel) const
{
    const QRect around = panel.adjusted(-extent, -extent, 0, extent);
    const int lower = around.bottom() + 1 - corner;
    const int alongTop = around.width() - corner;
    return { { { upperLeft, { around.topLeft(), QSize(corner, corner) } },
               { lowerLeft, { around.left(), lower, corner, corner } },
               { above, { around.left() + corner, around.top(), alongTop, extent } },
               { below, { around.left() + corner, panel.bottom() + 1, alongTop, extent } },
               { left, { around.left(), around.top() + corner, extent, around.height() - 2 * corner } } } };
}

void ShadowPictures::draw(QPainter& painter, const QRect& panel) const
{
    for (const Part& part : parts(panel))
        painter.drawImage(part.area, part.picture);
}

} // namespace nookle
