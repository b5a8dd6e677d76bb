#include "IconPicture.h"

#include <QIcon>
#include <QPixmap>
#include <QPixmapCache>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace nookle {

namespace {

[[nodiscard]] int longerSide(const QSize& size)
{
    return std::max(size.width(), size.height());
}

/// The icon's smallest source that is meant for `least` pixels or more, and for `most` at most; null if there is none.
[[nodiscard]] QPixmap sourceBetween(const QIcon& icon, int least, int most)
{
    QList<QSize> sizes = icon.availableSizes();
    std::sort(sizes.begin(), sizes.end(),
              [](const QSize& left, const QSize& right) { return longerSide(left) < longerSide(right); });
    for (const QSize& size : std::as_const(sizes)) {
        if (longerSide(size) < least || longerSide(size) > most)
            continue;
        if (QPixmap meant = icon.pixmap(size, 1.0); longerSide(meant.size()) >= least)
            return meant;
    }
    return {};
}

// By itself the toolkit takes the source that is meant for the closest size. That may be a picture that is too small,
// or a drawing that is simpler than the one for the next size.
[[nodiscard]] QPixmap source(const QIcon& icon, int side)
{
    if (QPixmap near = sourceBetween(icon, side, 2 * side); !near.isNull())
        return near;
    QPixmap closest = icon.pixmap(QSize(side, side), 1.0);
    if (longerSide(closest.size()) >= side)
        return closest;
    const QPixmap large = sourceBetween(icon, side, std::numeric_limits<int>::max());
    return large.isNull() ? closest : large;
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
