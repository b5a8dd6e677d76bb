#include "LinkPayload.h"

#include "MozillaUrl.h"
#include "ShelfItem.h"
#include "TextPayload.h"

#include <algorithm>

namespace nookle {

namespace {

[[nodiscard]] bool endsLine(QChar character)
{
    return character == QLatin1Char('\n') || character == QLatin1Char('\r') || character == QChar::LineSeparator
        || character == QChar::ParagraphSeparator;
}

/// On one line, since it is one line of most formats.
[[nodiscard]] QString titleOf(const LinkContent& link)
{
    QString title = link.title.value_or(QString());
    std::replace_if(title.begin(), title.end(), endsLine, QLatin1Char(' '));
    return title.isEmpty() ? link.url.absoluteString() : title;
}

// Without the character set, receivers guess one.
[[nodiscard]] QByteArray anchor(const QString& address, const QString& title)
{
    return "<meta http-equiv=\"content-type\" content=\"text/html; charset=utf-8\"><a href=\""
        + address.toHtmlEscaped().toUtf8() + "\">" + title.toHtmlEscaped().toUtf8() + "</a>";
}

} // namespace

// No "text/uri-list": editors open what is in such a list, and fail with a page, where they insert a text.
DragPayload linkPayload(const LinkContent& link)
{
    const QString address = link.url.absoluteString();
    const QString title = titleOf(link);
    DragPayload payload;
    payload.add(QStringLiteral("text/x-moz-url"), [=] { return mozillaUrl(address, title); });
    payload.add(QStringLiteral("_NETSCAPE_URL"), [=] { return QByteArray(address.toUtf8() + '\n' + title.toUtf8()); });
    payload.add(QStringLiteral("text/html"), [=] { return anchor(address, title); });
    addText(payload, address);
    return payload;
}

} // namespace nookle
