#include "PinButton.h"

#include "Colors.h"
#include "Highlight.h"
#include "PanelPinning.h"
#include "PlainToolTip.h"
#include "Symbol.h"

#include <QKeyEvent>
#include <QPainter>

namespace nookle {

namespace {

inline constexpr int buttonSize = 22;
inline constexpr double symbolSize = 16;
inline constexpr double cornerRadius = 6;

} // namespace

PinButton::PinButton(PanelPinning& pinning, QWidget* parent)
    : QAbstractButton(parent)
    , m_pinning(pinning)
{
    setFixedSize(sizeHint());
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
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

// The same highlight and frame as the tiles have.
void PinButton::paintState(QPainter& painter) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    if (isDown() || underMouse())
        paintHighlight(painter, rect(), cornerRadius, palette(), isDown() ? pressOpacity : hoverOpacity);
    if (hasFocus())
        paintFocusFrame(painter, rect(), cornerRadius, palette());
}

void PinButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void PinButton::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    paintState(painter);
    QRectF box(0, 0, symbolSize, symbolSize);
    box.moveCenter(QRectF(rect()).center());
    const bool isPinned = m_pinning.isPinned();
    drawSymbol(painter, isPinned ? Symbol::pinFill : Symbol::pin, SymbolWeight::medium, box,
               isPinned ? accentColor(palette()) : secondaryColor(palette()));
}

} // namespace nookle
