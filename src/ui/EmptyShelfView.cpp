#include "EmptyShelfView.h"

#include "Colors.h"
#include "Fonts.h"
#include "Symbol.h"

#include <QPainter>

namespace nookle {

namespace {

inline constexpr int padding = 12;
inline constexpr int spacing = 8;
inline constexpr int symbolSize = 48;

} // namespace

EmptyShelfView::EmptyShelfView(QWidget* parent)
    : QWidget(parent)
{
    setAccessibleName(tr("Drop here"));
}

void EmptyShelfView::showHint(const QString& hint)
{
    m_hint = hint;
    setAccessibleDescription(hint);
    update();
}

void EmptyShelfView::hideEvent(QHideEvent* event)
{
    showHint(QString());
    QWidget::hideEvent(event);
}

void EmptyShelfView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setFont(captionFont());
    const QColor color = secondaryColor(palette());
    const QRect area = rect().adjusted(padding, padding, -padding, -padding);
    const QString text =
        m_hint.isEmpty() ? tr("Drop here") : QString(tr("Drop here") + QStringLiteral("\n\n") + m_hint);
    const int flags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;
    const int textHeight = painter.fontMetrics().boundingRect(area, flags, text).height();
    const int top = area.center().y() - (symbolSize + spacing + textHeight) / 2;

    const QRect symbol(area.center().x() - symbolSize / 2, top, symbolSize, symbolSize);
    drawSymbol(painter, Symbol::tray, SymbolWeight::light, symbol, color);
    painter.setPen(color);
    painter.drawText(QRect(area.left(), symbol.bottom() + 1 + spacing, area.width(), textHeight), flags, text);
}

} // namespace nookle
