#include "TileMetrics.h"

#include "Fonts.h"
#include "Thumbnail.h"

#include <QTextLayout>

#include <algorithm>

namespace nookle {

namespace {

/// More characters than two lines of a tile can hold. The time to measure a text grows with its length.
inline constexpr qsizetype longestName = 256;

/// The maximum error of the rough width of a text, as a fraction of the line's width.
inline constexpr double roughness = 0.15;

/// The widths of the printable ASCII characters.
[[nodiscard]] std::array<int, 128> characterWidths(const QFontMetrics& metrics)
{
    std::array<int, 128> widths{};
    for (char character = ' '; character <= '~'; ++character)
        widths[static_cast<std::size_t>(character)] = metrics.horizontalAdvance(QLatin1Char(character));
    return widths;
}

/// The name as one line. The middle of a very long name is cut out, because it would not be visible anyway.
[[nodiscard]] QString onOneLine(QString text)
{
    if (text.size() > longestName)
        text = QString(text.left(longestName / 2) + text.right(longestName / 2));
    const auto isControl = [](QChar character) { return character.category() == QChar::Other_Control; };
    if (std::any_of(text.cbegin(), text.cend(), isControl))
        std::replace_if(text.begin(), text.end(), isControl, QChar::Space);
    return text;
}

} // namespace

TileMetrics::TileMetrics()
    : m_captionFont(nookle::captionFont())
    , m_smallerCaptionFont(nookle::smallerCaptionFont())
    , m_captionMetrics(m_captionFont)
    , m_characterWidths(characterWidths(m_captionMetrics))
    , m_captionHeight(m_captionMetrics.height())
    , m_unavailableHeight(spacing + QFontMetrics(m_smallerCaptionFont).height())
{
}

int TileMetrics::height(const QString& name, bool isUnavailable, int width) const
{
    const int textWidth = width - 2 * padding;
    const int lines = fitsOnOneLine(onOneLine(name), textWidth) ? 1 : 2;
    return padding + previewSize + spacing + lines * m_captionHeight + (isUnavailable ? m_unavailableHeight : 0)
        + padding;
}

QStringList TileMetrics::nameLines(const QString& name, int width) const
{
    const QString text = onOneLine(name);
    if (fitsOnOneLine(text, width))
        return { text };
    const int length = firstLineLength(text, width);
    const QString rest = text.mid(length).trimmed();
    return { text.left(length).trimmed(), m_captionMetrics.elidedText(rest, Qt::ElideMiddle, width) };
}

// Measures exactly only if the rough width is close to the line's width: that is rare, and thousands of names are
// measured at once.
bool TileMetrics::fitsOnOneLine(const QString& text, int width) const
{
    const std::optional<int> rough = roughWidth(text);
    if (rough && *rough < (1 - roughness) * width)
        return true;
    if (rough && *rough > (1 + roughness) * width)
        return false;
    return m_captionMetrics.horizontalAdvance(text) <= width;
}

std::optional<int> TileMetrics::roughWidth(const QString& text) const
{
    int width = 0;
    for (const QChar character : text) {
        if (character.unicode() >= m_characterWidths.size())
            return std::nullopt;
        width += m_characterWidths[character.unicode()];
    }
    return width;
}

int TileMetrics::firstLineLength(const QString& text, int width) const
{
    QTextLayout layout(text, m_captionFont);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(width);
    layout.endLayout();
    return line.textLength();
}

} // namespace nookle
