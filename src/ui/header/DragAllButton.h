#pragma once

#include "HeaderButton.h"

#include <QPointF>

#include <functional>
#include <optional>

namespace nookle {

/// A handle that stands for everything on the shelf: dragging it takes all items along, a click selects them.
class DragAllButton final : public HeaderButton {
    Q_OBJECT

public:
    explicit DragAllButton(QWidget* parent);

    /// Called when the user begins to drag the handle. Set by the owner.
    std::function<void()> onDrag = [] {};

protected:
    [[nodiscard]] Symbol symbol() const override { return Symbol::stack; }

    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    std::optional<QPointF> m_mouseDownLocation;
};

} // namespace nookle
