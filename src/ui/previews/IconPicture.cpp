#include "IconPicture.h"

#include <QIcon>
#include <QPixmap>
#include <QPixmapCache>

#include <algorithm>
#include <cmath>

namespace nookle {

namespace {

[[nodiscard]] int longerSide(const QSize& size)
{
    return std::max(size.width(), size.height());
}

/// The smallest of the icon's sources that has `side` pixels; else the largest.
[[nodiscard]] QPixmap source(const QIcon& icon, int side)
{
    // The toolkit takes the source that is closest in size, though it may be smaller.
    QPixmap closest = icon.pixmap(QSize(side, side), 1.0);
    if (longerSide(closest.size()) >= side)
        return closest;
    QList<QSize> sizes = icon.availableSizes();
    std::sort(sizes.begin(), sizes.end(),
              [](const QSize& left, const QSize& right) { return longerSide(left) < longerSide(right); });
    for (const QSize& size : std::as_const(sizes)) {
        if (longerSide(size) < side)
            continue;
        if (QPixmap larger = icon.pixmap(size, 1.0); longerSide(larger.size()) >= side)
            return larger;
    }
    return closest;
}

} // namespace

QPixmap iconPicture(const QIcon& icon, double side)
{
    const int pixels = static_cast<int>(std::ceil(side));
    const QString key = QStringLiteral("nookle-icon-%1-%2").arg(icon.cacheKey()).arg(pixels);
    QPixmap picture;
    if (QPixmapCache::find(key, &picture))
        return picture;
    picture = source(icon, pixels).scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    picture.setDevicePixelRatio(1);
    QPixmapCache::insert(key, picture);
    return picture;
}

} // namespace nookle
