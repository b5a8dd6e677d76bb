#include "PlainToolTip.h"

#include "PlainText.h"

#include <QTextDocument>
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

} // namespace nookle
