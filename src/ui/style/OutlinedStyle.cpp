#include "OutlinedStyle.h"

#include "Colors.h"
#include "PlainToolTip.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>

namespace nookle {

namespace {

const QString ownStyle = QStringLiteral("fusion");

[[nodiscard]] bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

void paintOutline(QPainter& painter, const QRect& rect, const QPalette& palette)
{
    constexpr int width = 1;
    const QColor color = outlineColor(palette);
    painter.fillRect(rect.left(), rect.top(), rect.width(), width, color);
    painter.fillRect(rect.left(), rect.bottom(), rect.width(), width, color);
    painter.fillRect(rect.left(), rect.top() + width, width, rect.height() - 2 * width, color);
    painter.fillRect(rect.right(), rect.top() + width, width, rect.height() - 2 * width, color);
}

[[nodiscard]] bool isLine(const QStyleOption& option)
{
    const auto* entry = qstyleoption_cast<const QStyleOptionMenuItem*>(&option);
    return entry && entry->menuItemType == QStyleOptionMenuItem::Separator && entry->text.isEmpty();
}

} // namespace

void OutlinedStyle::useInstead()
{
    if (QApplication::style()->name() == ownStyle)
        QApplication::setStyle(new OutlinedStyle);
}

OutlinedStyle::OutlinedStyle()
    : QProxyStyle(ownStyle)
{
}

// The toolkit gives tool tips its own colours again each time that the desktop's change.
void OutlinedStyle::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    if (widget->inherits("QTipLabel"))
        widget->setPalette(toolTipPalette(QApplication::palette()));
}

void OutlinedStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                  const QWidget* widget) const
{
    if (element == PE_PanelTipLabel) {
        painter->fillRect(option->rect, option->palette.toolTipBase());
        paintOutline(*painter, option->rect, option->palette);
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if ((element == PE_PanelMenu || element == PE_IndicatorCheckBox) && isDark(option->palette))
        paintOutline(*painter, option->rect, option->palette);
}

void OutlinedStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const
{
    QProxyStyle::drawControl(element, option, painter, widget);
    if (element != CE_MenuItem || !isLine(*option) || !isDark(option->palette))
        return;
    constexpr int margin = 5;
    const QRect line(option->rect.left() + margin, option->rect.center().y(), option->rect.width() - 2 * margin, 1);
    painter->fillRect(line, outlineColor(option->palette));
}

int OutlinedStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    constexpr int tipMargin = 4;
    return metric == PM_ToolTipLabelFrameWidth ? tipMargin : QProxyStyle::pixelMetric(metric, option, widget);
}

QSize OutlinedStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                      const QWidget* widget) const
{
    constexpr QSize room(6, 0);
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    return type == CT_PushButton ? size + 2 * room : size;
}

int OutlinedStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                             QStyleHintReturn* returned) const
{
    return hint == SH_EtchDisabledText ? 0 : QProxyStyle::styleHint(hint, option, widget, returned);
}

} // namespace nookle
