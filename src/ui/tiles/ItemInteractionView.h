#pragma once

#include "DragSession.h"
#include "ItemInteraction.h"

#include <QPointF>
#include <QWidget>

#include <memory>
#include <optional>

class QMenu;

namespace nookle {

/// Covers a tile and handles its mouse events: distinguishes a click from a drag, opens the context menu, and reports
/// hovering. Draws nothing.
class ItemInteractionView final : public QWidget {
    Q_OBJECT

public:
    explicit ItemInteractionView(QWidget* parent = nullptr, DragRunner runDrag = runDragSession);

    /// Replaces the actions of the view. Before the first call the view does nothing.
    void setConfiguration(ItemInteraction configuration);

    [[nodiscard]] const std::optional<ItemInteraction>& configuration() const { return m_configuration; }

    /// Opens the context menu at a position on the screen. Does nothing when there is no menu.
    void showMenu(const QPoint& globalPosition);

    /// Makes the context menu with its present entries; null when there is none.
    [[nodiscard]] std::unique_ptr<QMenu> makeMenu();

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    /// A press of the left button.
    struct Press {
        QPointF globalPosition;
        /// The event's timestamp, in milliseconds.
        quint64 time = 0;
        /// The user may let go of the keys before the button.
        Qt::KeyboardModifiers modifiers;
        /// The number of this press in a series of quick presses at one place, beginning with 1.
        int clickCount = 1;
    };

    void press(const QMouseEvent& event);
    [[nodiscard]] static bool isSoonAfter(const Press& first, const Press& second);
    void beginDrag();

    DragRunner m_runDrag;
    std::optional<ItemInteraction> m_configuration;
    std::optional<QPointF> m_mouseDownLocation;
    std::optional<Press> m_lastPress;
};

} // namespace nookle
