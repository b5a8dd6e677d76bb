#include "HeaderButton.h"

#include "Colors.h"
#include "Highlight.h"
#include "PlainToolTip.h"
#include "ToolTipPlace.h"

#include <QKeyEvent>
#include <QPainter>

namespace nookle {

namespace {

inline constexpr int buttonSize = 22;
inline constexpr double symbolSize = 16;
inline constexpr double cornerRadius = 6;

} // namespace

HeaderButton::HeaderButton(QWidget* parent)
    : QAbstractButton(parent)
{
    setFixedSize(buttonSize, buttonSize);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
}

QSize HeaderButton::sizeHint() const
{
    return { buttonSize, buttonSize };
}

QColor HeaderButton::symbolColor() const
{
    return secondaryColor(palette());
}

void HeaderButton::setName(const QString& name)
{
    setPlainToolTip(*this, name);
    setAccessibleName(name);
}

bool HeaderButton::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QAbstractButton::event(event);
    event->setAccepted(showToolTip(*this));
    return true;
}

void HeaderButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

// The same highlight and frame as the tiles have.
void HeaderButton::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isDown() || underMouse())
        paintHighlight(painter, rect(), cornerRadius, palette(), isDown() ? pressOpacity : hoverOpacity);
    if (hasFocus())
        paintFocusFrame(painter, rect(), cornerRadius, palette());
    QRectF box(0, 0, symbolSize, symbolSize);
    box.moveCenter(QRectF(rect()).center());
    drawSymbol(painter, symbol(), SymbolWeight::medium, box, symbolColor());
}

} // namespace nookle
