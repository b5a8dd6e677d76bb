#include "ProgramIcon.h"

#include "MenuBarIcon.h"

#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPixmap>

namespace nookle {

namespace {

// The shapes below are defined on a square of this size.
inline constexpr int canvasSize = 64;
/// The icon is drawn that much larger and then made smaller, because the tray stands between the pixels of most sizes.
inline constexpr int enlargement = 8;

[[nodiscard]] QImage drawnIcon()
{
    constexpr double cornerRadius = 13;
    const QRectF ground(3, 3, 58, 58);
    const QRectF tray(9.5, 9.3, 45, 45);
    QLinearGradient blue(0, ground.top(), 0, ground.bottom());
    blue.setColorAt(0, QColor(0x5a, 0xa9, 0xe6));
    blue.setColorAt(1, QColor(0x2f, 0x6f, 0xb3));

    QImage picture(QSize(canvasSize, canvasSize) * enlargement, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(enlargement);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(blue);
    painter.drawRoundedRect(ground, cornerRadius, cornerRadius);
    MenuBarIcon::draw(painter, tray, Qt::white);
    painter.end();
    picture.setDevicePixelRatio(1);
    return picture;
}

} // namespace

QIcon programIcon()
{
    QIcon icon = QIcon::fromTheme(QStringLiteral("org.nookle.Nookle"));
    if (!icon.isNull())
        return icon;
    const QImage drawn = drawnIcon();
    for (const int side : { 16, 24, 32, 48, 64, 128 })
        icon.addPixmap(QPixmap::fromImage(drawn.scaledToWidth(side, Qt::SmoothTransformation)));
    return icon;
}

} // namespace nookle
