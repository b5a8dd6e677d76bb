#pragma once

#include <QPixmap>
#include <QSizeF>

#include <vector>

class QPalette;

namespace nookle {

/// The size of a fan in points.
inline constexpr QSizeF fanSize(76, 68);
/// The size in points of each picture in it.
inline constexpr int fanCardSize = 48;
inline constexpr std::size_t mostInFan = 3;

/// The picture of several dragged items: up to three of their pictures, the first one in front of the others, and the
/// number of items in a badge. `scale` is the number of pixels a point.
[[nodiscard]] QPixmap fanPicture(const std::vector<QPixmap>& pictures, qsizetype count, const QPalette& palette,
                                 double scale);

} // namespace nookle
