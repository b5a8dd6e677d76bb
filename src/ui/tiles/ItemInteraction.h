#pragma once

#include "DragOperation.h"
#include "DragPayload.h"
#include "MenuAction.h"

#include <QPixmap>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace nookle {

/// What a drag carries, and the picture under the pointer.
struct DragItem {
    /// Never null.
    std::shared_ptr<const DragPayload> payload;
    QPixmap picture;
};

/// What one tile does with the mouse. A closure that is not set does nothing.
struct ItemInteraction {
    /// Called when a drag begins; nothing means that the item cannot be dragged.
    std::function<std::optional<DragItem>()> dragItem;
    /// What other programs are offered.
    DragOperations allowedOperations;
    /// Called each time the context menu is opened; an empty list means no menu.
    std::function<MenuActions()> menu;
    /// The hover text; none means no text.
    std::optional<QString> toolTip;
    /// The context menu has opened (true) or closed.
    std::function<void(bool isOpen)> onMenuOpenChanged;
    std::function<void(bool isInside)> onHover;
    std::function<void()> onClick;
    std::function<void()> onDragBegan;
    /// Called with what the destination did; `none` when the drag was cancelled.
    std::function<void(DragOperation)> onDragEnded;
};

} // namespace nookle
