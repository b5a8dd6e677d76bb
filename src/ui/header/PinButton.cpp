#include "PinButton.h"

#include "Colors.h"
#include "PanelPinning.h"

namespace nookle {

PinButton::PinButton(PanelPinning& pinning, QWidget* parent)
    : HeaderButton(parent)
    , m_pinning(pinning)
{
    connect(&m_pinning, &PanelPinning::isPinnedChanged, this, &PinButton::showState);
    showState();
}

void PinButton::showState()
{
    setName(m_pinning.isPinned() ? tr("Allow Shelf to Hide") : tr("Keep Shelf Open"));
    update();
}

Symbol PinButton::symbol() const
{
    return m_pinning.isPinned() ? Symbol::pinFill : Symbol::pin;
}

QColor PinButton::symbolColor() const
{
    return m_pinning.isPinned() ? accentColor(palette()) : HeaderButton::symbolColor();
}

} // namespace nookle
