#include "ImageDescription.h"

#include "DropAddresses.h"
#include "DropPayload.h"
#include "DropText.h"
#include "PlainText.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>
#include <utility>

namespace nookle {

namespace {

inline constexpr qsizetype longestDescription = 80;

/// The number of characters of a page in which the image is searched, and of its tag in which the text is searched.
inline constexpr qsizetype searchedPage = 1 << 16;
inline constexpr qsizetype longestTag = 1 << 12;

/// The characters that browsers write as named entities.
[[nodiscard]] QString namedCharacter(QStringView name)
{
    constexpr std::array<std::pair<const char*, char16_t>, 6> entities{ {
        { "amp", u'&' },
        { "apos", u'\'' },
        { "gt", u'>' },
        { "lt", u'<' },
        { "nbsp", u'\u00a0' },
        { "quot", u'"' },
    } };
    for (const auto& [entity, character] : entities) {
        if (name == QLatin1String(entity))
            return QChar(character);
    }
    return {};
}

/// The character of a number such as "#233" or "#xe9"; a replacement character if there is none of that number.
[[nodiscard]] QString numberedCharacter(QStringView number)
{
    constexpr int decimal = 10;
    constexpr int hexadecimal = 16;
    const bool isHexadecimal = number.mid(1).startsWith(QLatin1Char('x'), Qt::CaseInsensitive);
    bool isNumber = false;
    const char32_t code = number.mid(isHexadecimal ? 2 : 1).toUInt(&isNumber, isHexadecimal ? hexadecimal : decimal);
    if (!isNumber || code == 0 || code > QChar::LastValidCodePoint || QChar::isSurrogate(code))
        return QChar(QChar::ReplacementCharacter);
    return QString::fromUcs4(&code, 1);
}

[[nodiscard]] QString withoutEntities(const QString& text)
{
    static const QRegularExpression entity(QStringLiteral("&(#[0-9]+|#[xX][0-9a-fA-F]+|[a-z]+);"));
    QString decoded;
    qsizetype end = 0;
    for (auto matches = entity.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        const QStringView name = match.capturedView(1);
        const QString character = name.startsWith(QLatin1Char('#')) ? numberedCharacter(name) : namedCharacter(name);
        decoded += QStringView(text).mid(end, match.capturedStart() - end);
        decoded += character.isEmpty() ? match.captured() : character;
        end = match.capturedEnd();
    }
    return decoded + QStringView(text).mid(end);
}

/// The text of the first image in the page; empty if it has none.
[[nodiscard]] QString alternativeText(const QString& page)
{
    const qsizetype start = page.left(searchedPage).indexOf(QLatin1String("<img "), 0, Qt::CaseInsensitive);
    if (start < 0)
        return {};
    static const QRegularExpression attribute(
        QStringLiteral(R"re(^<img\s(?:[^>"']|"[^"]*"|'[^']*')*?\salt\s*=\s*(?:"([^"]*)"|'([^']*)'))re"),
        QRegularExpression::CaseInsensitiveOption);
    // A space more, for an attribute that follows the name of the tag.
    const QString tag = QStringLiteral("<img  ") + page.mid(start + 5, longestTag);
    const QRegularExpressionMatch match = attribute.match(tag);
    return withoutEntities(match.captured(1) + match.captured(2));
}

[[nodiscard]] QString loadAlternativeText(const DropPayload& payload)
{
    const QStringList formats = payload.formats();
    const auto html = std::find_if(formats.begin(), formats.end(), [](const QString& format) {
        return format.section(QLatin1Char(';'), 0, 0).compare(QLatin1String("text/html"), Qt::CaseInsensitive) == 0;
    });
    return html == formats.end() ? QString() : alternativeText(decodeText(payload.data(*html), *html));
}

[[nodiscard]] QString loadTitle(const DropPayload& payload)
{
    const auto addresses = loadDropAddresses(payload);
    if (addresses.size() != 1 || addresses.front().isFile())
        return {};
    const QString title = loadDropTitle(payload, addresses.front().url).value_or(QString());
    return title.contains(QLatin1String("://")) ? QString() : title;
}

[[nodiscard]] QString oneLine(const QString& text)
{
    QString line = withoutControls(text).simplified();
    if (line.size() > longestDescription)
        line.truncate(longestDescription - (line.at(longestDescription - 1).isHighSurrogate() ? 1 : 0));
    return line.trimmed();
}

} // namespace

QString loadImageDescription(const DropPayload& payload)
{
    const QString text = oneLine(loadAlternativeText(payload));
    return text.isEmpty() ? oneLine(loadTitle(payload)) : text;
}

} // namespace nookle
