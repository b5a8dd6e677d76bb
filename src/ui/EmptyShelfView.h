#pragma once

#include <QWidget>

namespace nookle {

/// What an empty shelf shows: a tray and the words "Drop here".
class EmptyShelfView final : public QWidget {
    Q_OBJECT

public:
    explicit EmptyShelfView(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace nookle
