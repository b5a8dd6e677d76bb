#pragma once

#include <QColor>
#include <QImage>
#include <QList>

namespace nookle {

/// The sizes that a picture of the icon is kept of, in pixels.
[[nodiscard]] QList<int> iconPictureSizes();

/// The icon as the program draws it, on nothing.
[[nodiscard]] QImage iconPicture(int size, const QColor& color);

} // namespace nookle
