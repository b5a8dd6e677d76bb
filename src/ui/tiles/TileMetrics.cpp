#include "TileMetrics.h"

#include "Fonts.h"

#include <QTextLayout>

#include <algorithm>

namespace nookle {

namespace {

/// More than two lines of a tile can ever hold. Measuring a text takes time for each of its characters.
inline constexpr qsizetype longestName = 256;

/// How far the rough width of a text may be from the true one.
inline constexpr double roughness = 0.15;

/// Of the plain characters of ASCII.
[[nodiscard]] std::array<int, 128> characterWidths(const QFontMetrics& metrics)
{
    std::array<int, 128> widths{};
    for (char character = ' '; character <= '~'; ++character)
        widths[static_cast<std::size_t>(character)] = metrics.horizontalAdvance(QLatin1Char(character));
    return widths;
}

/// The name on one line. What is cut out of the middle of a long one would not be seen anyway.
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

// Nearly all names are clearly shorter or clearly longer than a line, and thousands are measured at once.
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
