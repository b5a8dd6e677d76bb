#pragma once

#include "CarriedItem.h"
#include "DragPayload.h"

#include <QList>

namespace nookle {

class FileTransfers;

/// The formats of items, in their order; at least one. An item alone has the formats of its kind. Several are one text,
/// as `textOf`, and a list of the files and images among them, or a page of links if there is nothing else. `transfers`
/// must outlive the payload.
[[nodiscard]] DragPayload itemsPayload(const QList<CarriedItem>& items, FileTransfers& transfers);

} // namespace nookle
