#pragma once

#include "DropAddresses.h"
#include "ImageCopy.h"

#include <QString>

#include <optional>
#include <vector>

namespace nookle {

/// One dropped element: a file or a link, an image that may have an address, or a text.
struct DropItem {
    std::optional<DroppedAddress> address;
    std::optional<DroppedImage> image;
    std::optional<QString> text;

    [[nodiscard]] bool hasFileURL() const { return address && address->isFile(); }
};

/// The elements of one drop in the source's order.
using DropItems = std::vector<DropItem>;

} // namespace nookle
