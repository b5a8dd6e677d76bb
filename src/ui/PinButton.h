#pragma once

#include <QAbstractButton>

namespace nookle {

class PanelPinning;

/// The button in the shelf's header that shows and toggles whether the panel is pinned.
class PinButton final : public QAbstractButton {
    Q_OBJECT

public:
    PinButton(PanelPinning& pinning, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void showState();
    void paintState(QPainter& painter) const;

    PanelPinning& m_pinning;
};

} // namespace nookle
