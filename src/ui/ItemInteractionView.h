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
    void press(const QMouseEvent& event, int clickCount);
    void beginDrag();

    DragRunner m_runDrag;
    std::optional<ItemInteraction> m_configuration;
    std::optional<QPointF> m_mouseDownLocation;
    int m_clickCount = 0;
};

} // namespace nookle
