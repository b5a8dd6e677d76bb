#pragma once

#include "DragItem.h"
#include "MenuAction.h"

#include <QString>

#include <functional>
#include <optional>

namespace nookle {

/// The actions of one tile on mouse events. A closure that is not set does nothing.
struct ItemInteraction {
    /// Called when a drag begins; none means that the item cannot be dragged.
    std::function<std::optional<DragItem>()> dragItem;
    /// Called each time the context menu is opened; an empty list means no menu.
    std::function<MenuActions()> menu;
    /// The tool tip; none means no tool tip.
    std::optional<QString> toolTip;
    /// Called when the tool tip is about to be shown; returns a longer one that tells the item from others with the
    /// same tool tip, or none.
    std::function<std::optional<QString>()> distinctToolTip;
    /// Called when the context menu has opened (true) or closed.
    std::function<void(bool isOpen)> onMenuOpenChanged;
    std::function<void(bool isInside)> onHover;
    std::function<void()> onClick;
    /// Called for a click with Control or Shift, in place of `onClick`.
    std::function<void(Qt::KeyboardModifiers)> onChoose;
    /// Called before `dragItem` for a drag that began with Control or Shift.
    std::function<void(Qt::KeyboardModifiers)> onChooseForDrag;
    std::function<void()> onDragBegan;
    /// Called with the operation that the destination reports; `none` when the drag was cancelled.
    std::function<void(DragOperation)> onDragEnded;
};

} // namespace nookle
