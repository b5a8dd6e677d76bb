#pragma once

#include <QObject>

class QWindow;

namespace nookle {

/// Places the menus and tool tips of the panel: they open to the left, because the panel is at the right edge of the
/// screen. Without this the compositor cuts them off there. Main thread only.
class PopupPlacement final : public QObject {
    Q_OBJECT

public:
    /// `panel` must outlive this object.
    explicit PopupPlacement(QWindow& panel);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place(QWindow& popup);

    QWindow& m_panel;
};

} // namespace nookle
