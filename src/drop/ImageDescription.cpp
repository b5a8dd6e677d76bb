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

[[nodiscard]] QString withoutEntities(QString text)
{
    constexpr std::array<std::pair<const char*, char>, 7> entities{ { { "&quot;", '"' },
                                                                      { "&#34;", '"' },
                                                                      { "&apos;", '\'' },
                                                                      { "&#39;", '\'' },
                                                                      { "&lt;", '<' },
                                                                      { "&gt;", '>' },
                                                                      { "&amp;", '&' } } };
    for (const auto& [entity, character] : entities)
        text.replace(QLatin1String(entity), QString(QLatin1Char(character)));
    return text;
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
