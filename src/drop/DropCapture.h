#pragma once

#include "DropItem.h"

#include <QByteArray>
#include <QUrl>

#include <optional>

namespace nookle {

class DropPayload;

/// The data of a drop, read before the source withdraws it.
struct CapturedDrop {
    /// Each file, image, link or text, in the source's order.
    DropItems items;
    /// The key with which this program can get the files of a sandboxed source under paths that it can use; empty when
    /// the source offers no key. `items` hold the source's own paths of these files.
    QByteArray transferKey;
    /// The folder into which the source saves its files, if it offers no items and no key.
    std::optional<QUrl> savedInto;
};

/// Whether a drag offers anything that the shelf takes. Reads only the names of the formats.
[[nodiscard]] bool offersDropItems(const DropPayload& payload);

/// Whether the shelf can take a drag that hovers over it. Reads the data only if all that is offered is bytes of an
/// unknown kind, which may be an image: a slow source should not have to deliver anything twice.
[[nodiscard]] bool canTakeDrop(const DropPayload& payload);

/// Reads the data of the drop, but only the formats that the shelf needs.
[[nodiscard]] CapturedDrop captureDrop(const DropPayload& payload);

} // namespace nookle
