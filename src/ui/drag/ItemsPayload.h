#pragma once

#include "DragPayload.h"
#include "ShelfItem.h"

#include <QList>
#include <QUrl>

#include <optional>

namespace nookle {

class FileTransfers;

/// An item on its way out of the shelf.
struct CarriedItem {
    ShelfItem item;
    /// The item's file or folder; none for texts and links.
    std::optional<QUrl> file;
};

/// The formats of items, in their order; at least one. An item alone has the formats of its kind. Several files and
/// images are one list, several links one address a line, several texts are joined by a blank line. A mixture offers
/// its files as a list, and everything as a text. `transfers` must outlive the payload.
[[nodiscard]] DragPayload itemsPayload(const QList<CarriedItem>& items, FileTransfers& transfers);

} // namespace nookle
