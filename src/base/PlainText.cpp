#include "PlainText.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace nookle {

namespace {

/// In UTF-16 units. Of a longer text, only so many at the start and at the end are read.
inline constexpr qsizetype longestRead = 4096;

[[nodiscard]] bool spacesLine(QChar character)
{
    const char16_t code = character.unicode();
    return (code >= 0x09 && code <= 0x0d) || code == 0x85 || code == 0x2028 || code == 0x2029;
}

[[nodiscard]] bool isControl(QChar character)
{
    const char16_t code = character.unicode();
    return code < 0x20 || (code >= 0x7f && code < 0xa0);
}

/// Whether the character is a mark, embedding, override or isolate of the writing direction.
[[nodiscard]] bool turnsDirection(QChar character)
{
    const char16_t code = character.unicode();
    return code == 0x061c || code == 0x200e || code == 0x200f || (code >= 0x202a && code <= 0x202e)
        || (code >= 0x2066 && code <= 0x2069);
}

[[nodiscard]] bool isPlain(QChar character)
{
    return !isControl(character) && !spacesLine(character) && !turnsDirection(character) && !character.isSurrogate();
}

[[nodiscard]] bool isHalfOfPair(const QString& text, qsizetype at)
{
    const QChar character = text.at(at);
    if (character.isHighSurrogate())
        return at + 1 == text.size() || !text.at(at + 1).isLowSurrogate();
    return character.isLowSurrogate() && (at == 0 || !text.at(at - 1).isHighSurrogate());
}

/// Whether the letter from `start` to `end` is too long to be kept whole, for example because it has hundreds of
/// accents.
[[nodiscard]] bool isOverlongLetter(qsizetype start, qsizetype end)
{
    constexpr qsizetype longestLetter = 64;
    return start < 0 || end < 0 || end - start > longestLetter;
}

[[nodiscard]] QString startOf(const QString& text, qsizetype length)
{
    if (text.size() <= length)
        return text;
    QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, text);
    letters.setPosition(length);
    if (letters.isAtBoundary())
        return text.left(length);
    const qsizetype start = letters.toPreviousBoundary();
    if (!isOverlongLetter(start, length))
        return text.left(start);
    return text.left(text.at(length).isLowSurrogate() ? length - 1 : length);
}

[[nodiscard]] QString endOf(const QString& text, qsizetype length)
{
    if (text.size() <= length)
        return text;
    const qsizetype from = text.size() - length;
    QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, text);
    letters.setPosition(from);
    if (letters.isAtBoundary())
        return text.mid(from);
    const qsizetype end = letters.toNextBoundary();
    if (!isOverlongLetter(from, end))
        return text.mid(end);
    return text.mid(text.at(from).isLowSurrogate() ? from + 1 : from);
}

} // namespace

QString withoutControls(const QString& text)
{
    if (std::all_of(text.cbegin(), text.cend(), isPlain))
        return text;
    QString plain;
    plain.reserve(text.size());
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QChar character = text.at(at);
        if (spacesLine(character))
            plain += QLatin1Char(' ');
        else if (!isControl(character) && !turnsDirection(character) && !isHalfOfPair(text, at))
            plain += character;
    }
    return plain;
}

std::optional<QString> cleanedTitle(const std::optional<QString>& title)
{
    if (!title)
        return std::nullopt;
    const QString cleaned = startOf(withoutControls(title->left(longestRead)), longestShownText);
    const bool isNothingLeft = cleaned.trimmed().isEmpty() && cleaned != *title;
    return isNothingLeft ? std::nullopt : std::optional(cleaned);
}

QString shownText(const QString& text)
{
    const bool isReadWhole = text.size() <= 2 * longestRead;
    const QString start = withoutControls(isReadWhole ? text : text.left(longestRead));
    if (isReadWhole && start.size() <= longestShownText)
        return start;
    const QString end = isReadWhole ? start : withoutControls(text.right(longestRead));
    constexpr qsizetype half = longestShownText / 2;
    return startOf(start, half) + QChar(0x2026) + endOf(end, half - 1);
}

QString menuTitle(const QString& title)
{
    return QString(title).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

} // namespace nookle
