#pragma once

#include "DropItem.h"

#include <QByteArray>
#include <QUrl>

#include <optional>

namespace nookle {

class DropPayload;

/// What was read of a drop while it could be read.
struct CapturedDrop {
    /// Each file, image, link or text, in the source's order.
    DropItems items;
    /// The key by which a sandboxed source hands its files over, under names that this program can use; empty when it
    /// does not. The items hold the source's own names for them.
    QByteArray transferKey;
    /// The folder into which the source saves what it carries, if it hands nothing else over.
    std::optional<QUrl> savedInto;
};

/// Whether a drag offers anything that the shelf takes; reads none of it.
[[nodiscard]] bool offersDropItems(const DropPayload& payload);

/// Reads what the drop's elements need, and no more.
[[nodiscard]] CapturedDrop captureDrop(const DropPayload& payload);

} // namespace nookle
