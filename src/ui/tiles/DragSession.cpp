#include "DragSession.h"

#include "PayloadMimeData.h"
#include "UriList.h"

#include <QDrag>
#include <QWidget>

#include <algorithm>
#include <memory>

namespace nookle {

namespace {

inline constexpr double pictureBox = 52;

// No desktop protocol has a "delete" operation. A destination that deletes a file uses "move".
[[nodiscard]] Qt::DropActions offeredActions(DragOperations allowed, bool carriesFile)
{
    Qt::DropActions actions;
    if (allowed & (DragOperation::copy | DragOperation::generic))
        actions |= Qt::CopyAction;
    if (allowed & DragOperation::link)
        actions |= Qt::LinkAction;
    const bool canBeMoved = allowed & DragOperation::move;
    const bool canBeDeleted = allowed & DragOperation::remove;
    if (canBeMoved || (canBeDeleted && carriesFile))
        actions |= Qt::MoveAction;
    return actions;
}

[[nodiscard]] DragOperation operation(Qt::DropAction action)
{
    switch (action) {
    case Qt::CopyAction:
        return DragOperation::copy;
    case Qt::LinkAction:
        return DragOperation::link;
    case Qt::MoveAction:
    case Qt::TargetMoveAction:
        return DragOperation::move;
    default:
        return DragOperation::none;
    }
}

// Reads the payload itself, because versions of the toolkit parse an address list differently.
[[nodiscard]] bool carriesFile(const DragPayload& payload)
{
    const auto addresses = uriListAddresses(payload.data(QStringLiteral("text/uri-list")).value_or(QByteArray()));
    return std::any_of(addresses.begin(), addresses.end(), isFileAddress);
}

} // namespace

QSizeF dragPictureSize(const QSizeF& imageSize)
{
    const double scale =
        std::min(pictureBox / std::max(imageSize.width(), 1.0), pictureBox / std::max(imageSize.height(), 1.0));
    return imageSize * scale;
}

DragOperation runDragSession(QWidget& source, const DragItem& item)
{
    const Qt::DropActions actions = offeredActions(item.allowed, carriesFile(*item.payload));
    // The widget may be destroyed before the drag ends, but its window is not.
    auto* drag = new QDrag(source.window());
    drag->setMimeData(std::make_unique<PayloadMimeData>(item.payload).release());
    if (!item.picture.isNull()) {
        const double ratio = source.devicePixelRatioF();
        QPixmap picture =
            item.picture.scaled((item.pictureSize * ratio).toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        picture.setDevicePixelRatio(ratio);
        drag->setPixmap(picture);
        drag->setHotSpot((QPointF(item.pictureSize.width(), item.pictureSize.height()) / 2).toPoint());
    }
    return operation(drag->exec(actions, Qt::CopyAction));
}

} // namespace nookle
