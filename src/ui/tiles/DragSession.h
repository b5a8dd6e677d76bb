#pragma once

#include "DragItem.h"

#include <functional>

class QWidget;

namespace nookle {

/// Runs a drag out of the shelf into other programs to its end, and returns the operation that the destination reports.
/// Runs an event loop meanwhile.
using DragRunner = std::function<DragOperation(QWidget& source, DragItem item)>;

/// The size of the drag picture of one item: the largest one that fits into the box of a tile's preview, with the same
/// aspect ratio. Small pictures are enlarged.
[[nodiscard]] QSizeF dragPictureSize(const QSizeF& imageSize);

/// Runs a drag with the toolkit's drag and drop. The picture is centred on the pointer.
[[nodiscard]] DragOperation runDragSession(QWidget& source, const DragItem& item);

} // namespace nookle
