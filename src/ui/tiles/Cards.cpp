#include "Cards.h"

#include "Colors.h"
#include "PlainText.h"
#include "Symbol.h"

#include <QFontDatabase>
#include <QPainter>
#include <QPainterPath>
#include <QStringList>
#include <QTextOption>

namespace nookle {

namespace {

inline constexpr double borderWidth = 1;
inline constexpr double pageCornerRadius = 4;
inline constexpr int pagePadding = 4;
inline constexpr int pageFontSize = 6;
inline constexpr double cardCornerRadius = 10;
inline constexpr int iconSize = 28;
inline constexpr int linkSymbolSize = 24;

/// More characters than a page can show. The time to lay out a text grows with its length.
inline constexpr qsizetype longestPage = 600;

void paintCard(QPainter& painter, const QRect& box, double cornerRadius, const QPalette& palette)
{
    const QRectF inner = QRectF(box).adjusted(borderWidth / 2, borderWidth / 2, -borderWidth / 2, -borderWidth / 2);
    painter.setPen(Qt::NoPen);
    painter.setBrush(cardColor(palette));
    painter.drawRoundedRect(box, cornerRadius, cornerRadius);
    painter.setPen(QPen(quaternaryColor(palette), borderWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(inner, cornerRadius - borderWidth / 2, cornerRadius - borderWidth / 2);
}

/// The beginning of the text, without control characters except line feeds.
[[nodiscard]] QString pageText(const QString& text)
{
    QStringList lines = text.left(longestPage).split(QLatin1Char('\n'));
    for (QString& line : lines)
        line = withoutControls(line);
    return lines.join(QLatin1Char('\n'));
}

[[nodiscard]] QFont pageFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(pageFontSize);
    return font;
}

} // namespace

void paintTextPage(QPainter& painter, const QRect& box, const QString& text, const QPalette& palette)
{
    painter.save();
    paintCard(painter, box, pageCornerRadius, palette);
    const QRect area = box.adjusted(pagePadding, pagePadding, -pagePadding, -pagePadding);
    painter.setClipRect(area, Qt::IntersectClip);
    painter.setFont(pageFont());
    painter.setPen(secondaryColor(palette));
    QTextOption option(Qt::AlignLeft | Qt::AlignTop);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    painter.drawText(QRectF(area), pageText(text), option);
    painter.restore();
}

void paintLinkCard(QPainter& painter, const QRect& box, const QPixmap& icon, const QPalette& palette)
{
    painter.save();
    paintCard(painter, box, cardCornerRadius, palette);
    if (icon.isNull()) {
        QRectF place(0, 0, linkSymbolSize, linkSymbolSize);
        place.moveCenter(QRectF(box).center());
        drawSymbol(painter, Symbol::link, SymbolWeight::medium, place, secondaryColor(palette));
    } else {
        const QSizeF largest(iconSize, iconSize);
        QRectF place(QPointF(), QSizeF(icon.size()).scaled(largest, Qt::KeepAspectRatio));
        place.moveCenter(QRectF(box).center());
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawPixmap(place, icon, QRectF(icon.rect()));
    }
    painter.restore();
}

} // namespace nookle
