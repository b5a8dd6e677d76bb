#pragma once

#include <QWidget>

namespace nookle {

/// The line along the inside of the panel's edge that shows that a drop is accepted. It lies above the panel's content,
/// which gets all events. Hidden at first.
class DropOutline final : public QWidget {
    Q_OBJECT

public:
    explicit DropOutline(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace nookle
