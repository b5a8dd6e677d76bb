#pragma once

#include "DragSession.h"
#include "ItemInteraction.h"

#include <QPointF>
#include <QWidget>

#include <memory>
#include <optional>

class QMenu;

namespace nookle {

/// Lies over a tile and takes the mouse: tells a click from a drag, opens the context menu, reports hovering. Draws
/// nothing.
class ItemInteractionView final : public QWidget {
    Q_OBJECT

public:
    explicit ItemInteractionView(QWidget* parent = nullptr, DragRunner runDrag = runDragSession);

    /// Replaces what the view does. Until the first call it does nothing.
    void setConfiguration(ItemInteraction configuration);

    [[nodiscard]] const std::optional<ItemInteraction>& configuration() const { return m_configuration; }

    /// Opens the context menu at a place on the screen; nothing happens when there is none.
    void showMenu(const QPoint& globalPosition);

    /// The context menu as it should be now; null when there is none.
    [[nodiscard]] std::unique_ptr<QMenu> makeMenu();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    /// The left button going down.
    struct Press {
        QPointF globalPosition;
        /// In milliseconds, on the clock of the events.
        quint64 time = 0;
        /// 1 for the first of a quick series at one place, 2 for the second, and so on.
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
