#pragma once

#include <QWidget>

namespace nookle {

/// The line along the panel's edge: a thin one that sets it off from what lies behind, or a stroke that shows that a
/// drop is accepted. It lies above the panel's content, which gets all events.
class PanelOutline final : public QWidget {
    Q_OBJECT

public:
    explicit PanelOutline(QWidget* parent);

    void setDropTarget(bool isDropTarget);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool m_isDropTarget = false;
};

} // namespace nookle
