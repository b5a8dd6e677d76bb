#include "LinkPayload.h"

#include "MozillaUrl.h"
#include "ShelfItem.h"
#include "TextPayload.h"

#include <QByteArrayList>

#include <algorithm>

namespace nookle {

namespace {

[[nodiscard]] bool endsLine(QChar character)
{
    return character == QLatin1Char('\n') || character == QLatin1Char('\r') || character == QChar::LineSeparator
        || character == QChar::ParagraphSeparator;
}

/// The title without line breaks, because most formats use one line for it.
[[nodiscard]] QString titleOf(const LinkContent& link)
{
    QString title = link.title.value_or(QString());
    std::replace_if(title.begin(), title.end(), endsLine, QLatin1Char(' '));
    return title.isEmpty() ? link.url.absoluteString() : title;
}

[[nodiscard]] QByteArray anchor(const QString& address, const QString& title)
{
    return "<a href=\"" + address.toHtmlEscaped().toUtf8() + "\">" + title.toHtmlEscaped().toUtf8() + "</a>";
}

// Without this character set, receivers would guess one.
[[nodiscard]] QByteArray page(const QByteArray& content)
{
    return "<meta http-equiv=\"content-type\" content=\"text/html; charset=utf-8\">" + content;
}

[[nodiscard]] QByteArray pageOfAnchors(const QList<LinkContent>& links)
{
    QByteArrayList anchors;
    for (const LinkContent& link : links)
        anchors.append(anchor(link.url.absoluteString(), titleOf(link)));
    return page(anchors.join("<br>\n"));
}

} // namespace

// No "text/uri-list": editors try to open the addresses in such a list as files, and fail with a web page. Without it
// they insert the text.
DragPayload linkPayload(const LinkContent& link)
{
    const QString address = link.url.absoluteString();
    const QString title = titleOf(link);
    DragPayload payload;
    payload.add(QStringLiteral("text/x-moz-url"), [=] { return mozillaUrl(address, title); });
    payload.add(QStringLiteral("_NETSCAPE_URL"), [=] { return QByteArray(address.toUtf8() + '\n' + title.toUtf8()); });
    payload.add(QStringLiteral("text/html"), [=] { return page(anchor(address, title)); });
    addText(payload, address);
    return payload;
}

void addLinks(DragPayload& payload, const QList<LinkContent>& links)
{
    payload.add(QStringLiteral("text/html"), [links] { return pageOfAnchors(links); });
}

} // namespace nookle
