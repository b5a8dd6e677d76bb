#include "PageTitle.h"

#include <QList>
#include <QTextBoundaryFinder>

namespace nookle {

namespace {

[[nodiscard]] bool isForbidden(char32_t c)
{
    const bool isDirectionOverride = (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
    const bool isTag = c >= 0xE0000 && c <= 0xE007F;
    const auto category = QChar::category(c);
    return isDirectionOverride || isTag || c == 0xFEFF || category == QChar::Other_Control
        || category == QChar::Other_Surrogate || QChar::isNonCharacter(c);
}

void cut(QString& title)
{
    QTextBoundaryFinder boundaries(QTextBoundaryFinder::Grapheme, title);
    boundaries.setPosition(maximumTitleLength - 1);
    if (!boundaries.isAtBoundary())
        boundaries.toPreviousBoundary();
    title.truncate(boundaries.position());
    title = title.trimmed() + QChar(0x2026);
}

} // namespace

std::optional<QString> presentableTitle(const QString& text)
{
    QString title;
    for (const char32_t c : text.simplified().toUcs4()) {
        if (!isForbidden(c))
            title += QString::fromUcs4(&c, 1);
    }
    title = title.simplified();
    if (title.isEmpty())
        return std::nullopt;
    if (title.size() > maximumTitleLength)
        cut(title);
    return title;
}

} // namespace nookle
