#pragma once

#include "DropItem.h"

#include <memory>
#include <vector>

class QMimeData;

namespace nookle {

/// Whether a drag offers anything that the shelf takes; reads none of it.
[[nodiscard]] bool offersDropItems(const QMimeData& data);

/// The elements of a drop in the source's order: each address of its list, or its text. Reads all that they need, since
/// the source answers only while the drop is being handled.
[[nodiscard]] std::vector<std::unique_ptr<DropItem>> dropItems(const QMimeData& data);

} // namespace nookle
