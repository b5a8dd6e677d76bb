#include "FontDescription.h"

#include <QHash>
#include <QStringList>

#include <functional>

namespace nookle {

namespace {

using StyleWord = std::function<void(QFont&)>;

[[nodiscard]] StyleWord weight(QFont::Weight value)
{
    return [value](QFont& font) { font.setWeight(value); };
}

[[nodiscard]] StyleWord style(QFont::Style value)
{
    return [value](QFont& font) { font.setStyle(value); };
}

[[nodiscard]] StyleWord width(QFont::Stretch value)
{
    return [value](QFont& font) { font.setStretch(value); };
}

/// By the word without its hyphens, in lower case.
[[nodiscard]] const QHash<QString, StyleWord>& styleWords()
{
    static const QHash<QString, StyleWord> words{
        { QStringLiteral("thin"), weight(QFont::Thin) },
        { QStringLiteral("ultralight"), weight(QFont::ExtraLight) },
        { QStringLiteral("extralight"), weight(QFont::ExtraLight) },
        { QStringLiteral("light"), weight(QFont::Light) },
        // Between two weights that have names.
        { QStringLiteral("semilight"), weight(QFont::Weight(350)) },
        { QStringLiteral("demilight"), weight(QFont::Weight(350)) },
        { QStringLiteral("book"), weight(QFont::Weight(380)) },
        { QStringLiteral("regular"), weight(QFont::Normal) },
        { QStringLiteral("normal"), weight(QFont::Normal) },
        { QStringLiteral("medium"), weight(QFont::Medium) },
        { QStringLiteral("semibold"), weight(QFont::DemiBold) },
        { QStringLiteral("demibold"), weight(QFont::DemiBold) },
        { QStringLiteral("bold"), weight(QFont::Bold) },
        { QStringLiteral("ultrabold"), weight(QFont::ExtraBold) },
        { QStringLiteral("extrabold"), weight(QFont::ExtraBold) },
        { QStringLiteral("heavy"), weight(QFont::Black) },
        { QStringLiteral("black"), weight(QFont::Black) },
        { QStringLiteral("ultraheavy"), weight(QFont::Weight(1000)) },
        { QStringLiteral("extraheavy"), weight(QFont::Weight(1000)) },
        { QStringLiteral("ultrablack"), weight(QFont::Weight(1000)) },
        { QStringLiteral("extrablack"), weight(QFont::Weight(1000)) },
        { QStringLiteral("roman"), style(QFont::StyleNormal) },
        { QStringLiteral("oblique"), style(QFont::StyleOblique) },
        { QStringLiteral("italic"), style(QFont::StyleItalic) },
        { QStringLiteral("ultracondensed"), width(QFont::UltraCondensed) },
        { QStringLiteral("extracondensed"), width(QFont::ExtraCondensed) },
        { QStringLiteral("condensed"), width(QFont::Condensed) },
        { QStringLiteral("semicondensed"), width(QFont::SemiCondensed) },
        { QStringLiteral("semiexpanded"), width(QFont::SemiExpanded) },
        { QStringLiteral("expanded"), width(QFont::Expanded) },
        { QStringLiteral("extraexpanded"), width(QFont::ExtraExpanded) },
        { QStringLiteral("ultraexpanded"), width(QFont::UltraExpanded) },
    };
    return words;
}

[[nodiscard]] StyleWord styleWord(QString word)
{
    return styleWords().value(word.remove(QLatin1Char('-')).toLower());
}

/// At the usual resolution.
inline constexpr double pointsToPixel = 72.0 / 96;

[[nodiscard]] QLatin1String pixelUnit()
{
    return QLatin1String("px");
}

/// The words without those at the end for the axes and features of a font, which the toolkit does not know.
[[nodiscard]] QStringList wordsOf(const QString& description)
{
    QStringList words = description.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    while (!words.isEmpty() && (words.constLast().startsWith(u'@') || words.constLast().startsWith(u'#')))
        words.removeLast();
    return words;
}

/// The names between commas.
[[nodiscard]] QStringList families(const QString& list)
{
    QStringList names;
    for (const QString& name : list.split(QLatin1Char(','))) {
        if (const QString trimmed = name.trimmed(); !trimmed.isEmpty())
            names.append(trimmed);
    }
    return names;
}

} // namespace

std::optional<QFont> describedFont(const QString& description)
{
    QStringList words = wordsOf(description);
    if (words.isEmpty())
        return std::nullopt;
    QString sizeWord = words.takeLast();
    const bool isInPixels = sizeWord.endsWith(pixelUnit());
    if (isInPixels)
        sizeWord.chop(pixelUnit().size());
    const double size = sizeWord.toDouble();
    if (!(size > 0))
        return std::nullopt;
    // Not the default font, which has the style of the one before.
    QFont font{ QString() };
    // Words for the style stand behind the families. A comma ends these, so that a family may end with such a word.
    while (!words.isEmpty()) {
        const StyleWord apply = styleWord(words.constLast());
        if (!apply)
            break;
        apply(font);
        words.removeLast();
    }
    const QStringList names = families(words.join(QLatin1Char(' ')));
    if (names.isEmpty())
        return std::nullopt;
    font.setFamilies(names);
    font.setPointSizeF(isInPixels ? size * pointsToPixel : size);
    return font;
}

} // namespace nookle
