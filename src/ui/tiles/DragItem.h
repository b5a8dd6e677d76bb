#pragma once

#include "DragOperation.h"
#include "DragPayload.h"

#include <QPixmap>
#include <QSizeF>

#include <memory>

namespace nookle {

/// What a drag out of the shelf carries and shows.
struct DragItem {
    /// Never null.
    std::shared_ptr<const DragPayload> payload;
    /// The picture under the pointer, and its size in points.
    QPixmap picture;
    QSizeF pictureSize;
    /// The operations that are offered to other programs.
    DragOperations allowed;
};

} // namespace nookle
