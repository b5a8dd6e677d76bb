#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QStringList>

#include <array>
#include <optional>

namespace nookle {

/// Sizes and fonts of a tile. Make it once and keep it: it measures every tile of a long shelf.
class TileMetrics {
public:
    static constexpr int padding = 6;
    static constexpr int spacing = 4;

    /// Uses the desktop's fonts.
    TileMetrics();

    [[nodiscard]] const QFont& captionFont() const { return m_captionFont; }
    [[nodiscard]] const QFont& smallerCaptionFont() const { return m_smallerCaptionFont; }

    /// The height of a tile with this name at the width `width`.
    [[nodiscard]] int height(const QString& name, bool isUnavailable, int width) const;

    /// The name in at most two lines of `width`, cut in the middle so that its start and its extension stay visible.
    [[nodiscard]] QStringList nameLines(const QString& name, int width) const;

private:
    [[nodiscard]] bool fitsOnOneLine(const QString& text, int width) const;
    /// The sum of the widths of the characters, without kerning. None if the text contains non-ASCII characters.
    [[nodiscard]] std::optional<int> roughWidth(const QString& text) const;
    [[nodiscard]] int firstLineLength(const QString& text, int width) const;

    QFont m_captionFont;
    QFont m_smallerCaptionFont;
    QFontMetrics m_captionMetrics;
    std::array<int, 128> m_characterWidths;
    int m_captionHeight;
    int m_unavailableHeight;
};

} // namespace nookle
