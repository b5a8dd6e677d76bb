#pragma once

#include "CarriedItem.h"

#include <QPixmap>

class QPalette;

namespace nookle {

/// The picture of an item that is dragged. That of a file, an image or a link is `thumbnail`, or the icon of its kind
/// if `thumbnail` is null.
[[nodiscard]] QPixmap itemPicture(const CarriedItem& carried, bool isFolder, const QPixmap& thumbnail);

/// The picture of an item that is dragged together with others: a text is its page and a link its card, as on their
/// tiles, because a symbol would be lost among the pictures behind it. `scale` is the number of pixels a point.
[[nodiscard]] QPixmap cardPicture(const CarriedItem& carried, bool isFolder, const QPixmap& thumbnail,
                                  const QPalette& palette, double scale);

} // namespace nookle
