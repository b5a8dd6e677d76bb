#pragma once

#include <QWidget>

#include <functional>

namespace nookle {

class DragAllButton;
class PanelPinning;

/// The row at the top of the shelf: the handle for all items, and the pin.
class ShelfHeader final : public QWidget {
    Q_OBJECT

public:
    /// `pinning` must outlive the header.
    ShelfHeader(PanelPinning& pinning, QWidget* parent);

    /// Called when the user clicks the pin, clicks the handle, and begins to drag the handle, whose drag starts from
    /// `handle`. Set by the owner.
    std::function<void()> onTogglePin = [] {};
    std::function<void()> onSelectAll = [] {};
    std::function<void(QWidget& handle)> onDragAll = [](QWidget&) {};

    /// Shows the handle only for several items: a single one is its own handle.
    void setItemCount(qsizetype count);

private:
    DragAllButton* m_dragAll;
};

} // namespace nookle
