#include "PinButton.h"

#include "Colors.h"
#include "PanelPinning.h"
#include "PlainToolTip.h"
#include "Symbol.h"

#include <QPainter>

namespace nookle {

namespace {

inline constexpr int buttonSize = 22;
inline constexpr double symbolSize = 14;

} // namespace

PinButton::PinButton(PanelPinning& pinning, QWidget* parent)
    : QAbstractButton(parent)
    , m_pinning(pinning)
{
    setFixedSize(sizeHint());
    setFocusPolicy(Qt::TabFocus);
    connect(&m_pinning, &PanelPinning::isPinnedChanged, this, &PinButton::showState);
    showState();
}

QSize PinButton::sizeHint() const
{
    return { buttonSize, buttonSize };
}

void PinButton::showState()
{
    const QString text = m_pinning.isPinned() ? tr("Allow Shelf to Hide") : tr("Keep Shelf Open");
    setPlainToolTip(*this, text);
    setAccessibleName(text);
    update();
}

void PinButton::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    QRectF box(0, 0, symbolSize, symbolSize);
    box.moveCenter(QRectF(rect()).center());
    const bool isPinned = m_pinning.isPinned();
    drawSymbol(painter, isPinned ? Symbol::pinFill : Symbol::pin, SymbolWeight::medium, box,
               isPinned ? accentColor(palette()) : secondaryColor(palette()));
}

} // namespace nookle
