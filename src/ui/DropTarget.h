#pragma once

#include "DropPayload.h"

#include <functional>
#include <memory>
#include <optional>

class QDragEnterEvent;
class QDragMoveEvent;
class QDropEvent;
class QMimeData;

namespace nookle {

class DropHandler;

/// Makes a payload that reads a drop, from the toolkit's data or directly from the display server.
using DropReader = std::function<std::unique_ptr<DropPayload>(const QMimeData&)>;

/// Answers drags over the shelf, and hands over what is dropped. Main thread only.
class DropTarget final {
public:
    /// `handler` must outlive this object.
    DropTarget(DropReader readDrop, DropHandler& handler);

    /// Called when a drag that is accepted has entered (true), and when it has left or was dropped. Set by the owner.
    std::function<void(bool isHovered)> onHoverChanged = [](bool) {};

    [[nodiscard]] bool isHovered() const { return m_isHovered; }

    /// Call this when a drag out of the shelf has begun (true) or ended. The shelf does not accept its own items.
    void setDraggingOut(bool isDraggingOut) { m_isDraggingOut = isDraggingOut; }

    /// Accepts the event in any case. Whether the drag is accepted is the answer to the movement that follows.
    void enter(QDragEnterEvent& event);
    void move(QDragMoveEvent& event);
    void leave();
    void drop(QDropEvent& event);

private:
    void answer(QDragMoveEvent& event);
    [[nodiscard]] bool canTake(const QDropEvent& event);
    [[nodiscard]] bool isAllowed(const QDropEvent& event) const;
    void setHovered(bool isHovered);

    DropReader m_readDrop;
    DropHandler& m_handler;
    bool m_isHovered = false;
    /// Whether the drag that hovers can be taken; none before its data was looked at.
    std::optional<bool> m_isWanted;
    bool m_isDraggingOut = false;
};

} // namespace nookle
