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

/// Runs a session to its end and returns what the destination did. Events are handled meanwhile.
using DragRunner = std::function<DragOperation(QWidget& source, DragSession session)>;

/// The size of a drag picture: as large as fits into the box of a tile's preview, keeping its shape. Small pictures
/// grow.
[[nodiscard]] QSizeF dragPictureSize(const QSizeF& imageSize);

/// Runs a session on the desktop.
[[nodiscard]] DragOperation runDragSession(QWidget& source, DragSession session);

} // namespace nookle
