#pragma once

#include "HeaderButton.h"

namespace nookle {

class PanelPinning;

/// Shows and toggles whether the panel is pinned.
class PinButton final : public HeaderButton {
    Q_OBJECT

public:
    PinButton(PanelPinning& pinning, QWidget* parent);

protected:
    [[nodiscard]] Symbol symbol() const override;
    [[nodiscard]] QColor symbolColor() const override;

private:
    void showState();

    PanelPinning& m_pinning;
};

} // namespace nookle
