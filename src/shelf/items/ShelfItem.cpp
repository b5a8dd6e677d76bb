#include "ShelfItem.h"

#include "Overloaded.h"
#include "PlainText.h"

#include <QStringView>

#include <algorithm>

namespace nookle {

namespace {

/// The number of characters of a text that are searched for its first line.
inline constexpr qsizetype longestLine = 1 << 16;

[[nodiscard]] bool isNewline(QChar character)
{
    const ushort code = character.unicode();
    return (code >= 0x0a && code <= 0x0d) || code == 0x85 || code == 0x2028 || code == 0x2029;
}

[[nodiscard]] bool isHorizontalSpace(QChar character)
{
    return character == QLatin1Char('\t') || character.category() == QChar::Separator_Space;
}

[[nodiscard]] QStringView firstLine(QStringView text)
{
    const auto begin = std::find_if_not(text.begin(), text.end(), isNewline);
    if (begin == text.end())
        return text;
    return { begin, std::find_if(begin, text.end(), isNewline) };
}

[[nodiscard]] QStringView withoutHorizontalSpace(QStringView text)
{
    while (!text.isEmpty() && isHorizontalSpace(text.front()))
        text = text.mid(1);
    while (!text.isEmpty() && isHorizontalSpace(text.back()))
        text.chop(1);
    return text;
}

[[nodiscard]] QString withoutExtension(const QString& fileName)
{
    const qsizetype dot = fileName.lastIndexOf(QLatin1Char('.'));
    return dot > fileName.lastIndexOf(QLatin1Char('/')) ? fileName.left(dot) : fileName;
}

} // namespace

QString ShelfItem::displayName() const
{
    return std::visit(
        overloaded{
            [](const FileContent& file) { return file.name; },
            [](const TextContent& text) { return withoutHorizontalSpace(firstLine(text.text)).toString(); },
            [](const LinkContent& link) {
                return link.title ? *link.title : link.url.host().value_or(link.url.absoluteString());
            },
            [](const ImageContent& image) { return withoutExtension(image.fileName); },
        },
        content);
}

QString ShelfItem::shownName() const
{
    const TextContent* text = std::get_if<TextContent>(&content);
    if (!text)
        return shownText(displayName());
    // Unlike the display name, never that of a first line with nothing but spaces.
    const QStringView beginning = QStringView(text->text).left(longestLine).trimmed();
    return shownText(withoutHorizontalSpace(firstLine(beginning)).toString());
}

std::optional<LinkUrl> ShelfItem::webURL(const QString& from)
{
    std::optional<LinkUrl> url = LinkUrl::parse(from.trimmed());
    if (!url || !url->host())
        return {};
    const QString scheme = url->scheme();
    if (scheme != QLatin1String("http") && scheme != QLatin1String("https"))
        return {};
    return url;
}

} // namespace nookle
