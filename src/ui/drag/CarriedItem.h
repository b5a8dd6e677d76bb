#pragma once

#include "ShelfItem.h"

#include <QList>
#include <QString>
#include <QUrl>

#include <optional>

namespace nookle {

class ShelfStore;

/// An item on its way out of the shelf, by a drag or by the clipboard.
struct CarriedItem {
    ShelfItem item;
    /// The item's file or folder; none for texts and links.
    std::optional<QUrl> file;
};

/// The item's file if it is there. Looks on disk only for those of images: the store knows whether others exist.
[[nodiscard]] std::optional<QUrl> presentFile(const ShelfItem& item, const ShelfStore& store);

/// The items with their files, without those whose file is gone.
[[nodiscard]] QList<CarriedItem> presentItems(const QList<ShelfItem>& items, const ShelfStore& store);

/// The files of the items that have one.
[[nodiscard]] QList<QUrl> filesOf(const QList<CarriedItem>& items);

/// The items as one text: the texts, and the addresses of the others. They are separated by a blank line if there are
/// texts among them, and stand on a line each otherwise.
[[nodiscard]] QString textOf(const QList<CarriedItem>& items);

} // namespace nookle
