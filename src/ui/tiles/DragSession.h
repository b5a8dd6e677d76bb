#pragma once

#include "DragOperation.h"
#include "ItemInteraction.h"

#include <QSizeF>

#include <functional>

class QWidget;

namespace nookle {

/// A drag out of the shelf into other programs.
struct DragSession {
    DragItem item;
    /// The size of the picture in points, centred on the pointer.
    QSizeF pictureSize;
    DragOperations allowed;
};

/// Runs a session to its end and returns the operation that the destination reports. Runs an event loop meanwhile.
using DragRunner = std::function<DragOperation(QWidget& source, DragSession session)>;

/// The size of a drag picture: the largest one that fits into the box of a tile's preview, with the same aspect ratio.
/// Small pictures are enlarged.
[[nodiscard]] QSizeF dragPictureSize(const QSizeF& imageSize);

/// Runs a session with the toolkit's drag and drop.
[[nodiscard]] DragOperation runDragSession(QWidget& source, DragSession session);

} // namespace nookle
