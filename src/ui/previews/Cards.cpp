#include "Cards.h"

#include "Colors.h"
#include "DrawnPicture.h"
#include "PlainText.h"
#include "Symbol.h"

#include <QGuiApplication>
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
inline constexpr int linkSymbolSize = 34;

/// More characters than a page can show. The time to lay out a text grows with its length.
inline constexpr qsizetype longestPage = 600;

[[nodiscard]] QPainterPath cardShape(const QRect& box, double cornerRadius)
{
    QPainterPath shape;
    shape.addRoundedRect(box, cornerRadius, cornerRadius);
    return shape;
}

void paintBorder(QPainter& painter, const QRect& box, double cornerRadius, const QPalette& palette)
{
    const QRectF inner = QRectF(box).adjusted(borderWidth / 2, borderWidth / 2, -borderWidth / 2, -borderWidth / 2);
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
    QFont font = QGuiApplication::font();
    font.setPixelSize(pageFontSize);
    return font;
}

} // namespace

void paintTextPage(QPainter& painter, const QRect& box, const QString& text, const QPalette& palette)
{
    painter.save();
    const QPainterPath shape = cardShape(box, pageCornerRadius);
    painter.fillPath(shape, cardColor(palette));
    painter.save();
    painter.setClipPath(shape, Qt::IntersectClip);
    // A text that is longer than the page goes on to its lower edge.
    const QRect area = box.adjusted(pagePadding, pagePadding, -pagePadding, 0);
    painter.setFont(pageFont());
    painter.setPen(secondaryColor(palette));
    QTextOption option(Qt::AlignLeft | Qt::AlignTop);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    painter.drawText(QRectF(area), pageText(text), option);
    painter.restore();
    paintBorder(painter, box, pageCornerRadius, palette);
    painter.restore();
}

void paintLinkCard(QPainter& painter, const QRect& box, const QPixmap& icon, const QPalette& palette)
{
    painter.save();
    painter.fillPath(cardShape(box, cardCornerRadius), cardColor(palette));
    paintBorder(painter, box, cardCornerRadius, palette);
    if (icon.isNull()) {
        QRectF place(0, 0, linkSymbolSize, linkSymbolSize);
        place.moveCenter(QRectF(box).center());
        drawSymbol(painter, Symbol::link, SymbolWeight::medium, place, secondaryColor(palette));
    } else {
        QRectF place(0, 0, iconSize, iconSize);
        place.moveCenter(QRectF(box).center());
        drawPicture(painter, place, icon);
    }
    painter.restore();
}

} // namespace nookle
