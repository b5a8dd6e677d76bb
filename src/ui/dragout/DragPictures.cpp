#include "DragPictures.h"

#include "Cards.h"
#include "Colors.h"
#include "FanPicture.h"
#include "FileIcon.h"
#include "Symbol.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPainter>

namespace nookle {

namespace {

/// In pixels. Larger than shown, for displays with several pixels a point.
inline constexpr int pictureSize = 104;

[[nodiscard]] QPixmap symbolPicture(Symbol symbol)
{
    QPixmap picture(pictureSize, pictureSize);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawSymbol(painter, symbol, SymbolWeight::light, picture.rect(), secondaryColor(QGuiApplication::palette()));
    return picture;
}

} // namespace

QPixmap itemPicture(const CarriedItem& carried, bool isFolder, const QPixmap& thumbnail)
{
    if (std::holds_alternative<TextContent>(carried.item.content))
        return symbolPicture(Symbol::document);
    if (!thumbnail.isNull())
        return thumbnail;
    if (!carried.file)
        return symbolPicture(Symbol::link);
    const QPixmap icon = fileIcon(*carried.file, isFolder).pixmap(pictureSize);
    return icon.isNull() ? symbolPicture(Symbol::document) : icon;
}

QPixmap cardPicture(const CarriedItem& carried, bool isFolder, const QPixmap& thumbnail, const QPalette& palette,
                    double scale)
{
    const auto* text = std::get_if<TextContent>(&carried.item.content);
    if (!text && !std::holds_alternative<LinkContent>(carried.item.content))
        return itemPicture(carried, isFolder, thumbnail);
    QPixmap picture((QSizeF(fanCardSize, fanCardSize) * scale).toSize());
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect box(0, 0, fanCardSize, fanCardSize);
    if (text)
        paintTextPage(painter, box, text->text, palette);
    else
        paintLinkCard(painter, box, thumbnail, palette);
    return picture;
}

} // namespace nookle
