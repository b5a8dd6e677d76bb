#include "FanPicture.h"

#include "Colors.h"
#include "DrawnPicture.h"
#include "Fonts.h"
#include "PixelGrid.h"

#include <QFontMetricsF>
#include <QLocale>
#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <array>

namespace nookle {

namespace {

inline constexpr QPointF frontCenter(36, 36);
inline constexpr double badgeHeight = 18;
inline constexpr double badgePadding = 5;
inline constexpr double badgeRing = 1;

/// Where a card lies, seen from the one in front.
struct Lean {
    QPointF offset;
    double degrees;
};
inline constexpr std::array<Lean, mostInFan> leans{ Lean{ { 0, 0 }, 0 }, Lean{ { 8, -6 }, 10 },
                                                    Lean{ { -8, -4 }, -10 } };

/// Scaled before it is turned, because the painter looks at four pixels of the picture for each pixel of its place.
void drawTurned(QPainter& painter, const QPixmap& picture, const Lean& lean, double scale)
{
    const QSizeF place = QSizeF(picture.size()).scaled(QSizeF(fanCardSize, fanCardSize), Qt::KeepAspectRatio);
    const QPixmap scaled = picture.scaled((place * scale).toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(frontCenter + lean.offset);
    painter.rotate(lean.degrees);
    painter.drawPixmap(QRectF(QPointF(-place.width(), -place.height()) / 2, place), scaled, QRectF(scaled.rect()));
    painter.restore();
}

void drawFront(QPainter& painter, const QPixmap& picture)
{
    QRectF box(0, 0, fanCardSize, fanCardSize);
    box.moveCenter(frontCenter);
    drawPicture(painter, box, picture);
}

/// A ring sets the badge off from the picture behind it.
void drawBadge(QPainter& painter, const QString& text, const QPalette& palette)
{
    QFont font = captionFont();
    font.setBold(true);
    const double width = std::max(badgeHeight, QFontMetricsF(font).horizontalAdvance(text) + 2 * badgePadding);
    const QRectF place(fanSize.width() - width, fanSize.height() - badgeHeight, width, badgeHeight);
    const QRectF ring = PixelGrid(painter).aligned(place);
    const QRectF badge = ring.adjusted(badgeRing, badgeRing, -badgeRing, -badgeRing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette.color(QPalette::HighlightedText));
    painter.drawRoundedRect(ring, ring.height() / 2, ring.height() / 2);
    painter.setBrush(accentColor(palette));
    painter.drawRoundedRect(badge, badge.height() / 2, badge.height() / 2);
    painter.setFont(font);
    painter.setPen(palette.color(QPalette::HighlightedText));
    painter.drawText(ring, Qt::AlignCenter, text);
}

} // namespace

QPixmap fanPicture(const std::vector<QPixmap>& pictures, qsizetype count, const QPalette& palette, double scale)
{
    QPixmap fan((fanSize * scale).toSize());
    fan.setDevicePixelRatio(scale);
    fan.fill(Qt::transparent);
    QPainter painter(&fan);
    painter.setRenderHint(QPainter::Antialiasing);
    for (std::size_t index = std::min(pictures.size(), leans.size()); index > 1; --index)
        drawTurned(painter, pictures[index - 1], leans[index - 1], scale);
    if (!pictures.empty())
        drawFront(painter, pictures.front());
    drawBadge(painter, QLocale().toString(count), palette);
    return fan;
}

} // namespace nookle
