#include "PlainToolTip.h"

#include "PlainText.h"

#include <QPalette>
#include <QTextDocument>
#include <QToolTip>
#include <QWidget>

namespace nookle {

void setPlainToolTip(QWidget& widget, const QString& text)
{
    const QString shown = shownText(text);
    if (!Qt::mightBeRichText(shown)) {
        widget.setToolTip(shown);
        return;
    }
    const QString markup = QStringLiteral("<span style=\"white-space:pre-wrap\">%1</span>");
    widget.setToolTip(markup.arg(shown.toHtmlEscaped()));
}

// Some styles draw tool tips in the colours of windows, others in those of tool tips.
QPalette toolTipPalette(const QPalette& palette)
{
    QPalette colors = palette;
    const QColor background = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::WindowText);
    for (const auto role : { QPalette::ToolTipBase, QPalette::Window })
        colors.setColor(role, background);
    for (const auto role : { QPalette::ToolTipText, QPalette::WindowText, QPalette::Text })
        colors.setColor(role, text);
    return colors;
}

void useToolTipColors(const QPalette& palette)
{
    QToolTip::setPalette(toolTipPalette(palette));
}

} // namespace nookle
