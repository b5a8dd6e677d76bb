#include "IconPicture.h"

#include <QIcon>
#include <QPixmap>
#include <QPixmapCache>

#include <algorithm>
#include <cmath>
#include <utility>

namespace nookle {

namespace {

[[nodiscard]] int longerSide(const QSize& size)
{
    return std::max(size.width(), size.height());
}

/// The smallest of the icon's sources that is meant for `side` pixels or more; else the closest that there is.
[[nodiscard]] QPixmap source(const QIcon& icon, int side)
{
    QList<QSize> sizes = icon.availableSizes();
    std::sort(sizes.begin(), sizes.end(),
              [](const QSize& left, const QSize& right) { return longerSide(left) < longerSide(right); });
    for (const QSize& size : std::as_const(sizes)) {
        if (longerSide(size) < side)
            continue;
        // The toolkit takes the source that is closest in size. Drawings have any size, but at a smaller one than
        // theirs many themes have simpler ones.
        if (QPixmap meant = icon.pixmap(size, 1.0); longerSide(meant.size()) >= side)
            return meant;
    }
    return icon.pixmap(QSize(side, side), 1.0);
}

} // namespace

QPixmap iconPicture(const QIcon& icon, double side)
{
    const int pixels = static_cast<int>(std::ceil(side));
    // An icon of the theme stays the same object when the desktop changes to another theme.
    const QString key = QStringLiteral("nookle-icon-%1-%2-%3").arg(icon.cacheKey()).arg(pixels).arg(QIcon::themeName());
    QPixmap picture;
    if (QPixmapCache::find(key, &picture))
        return picture;
    picture = source(icon, pixels).scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    picture.setDevicePixelRatio(1);
    QPixmapCache::insert(key, picture);
    return picture;
}

} // namespace nookle
