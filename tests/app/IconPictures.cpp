#include "IconPictures.h"

#include "MenuBarIcon.h"

#include <QPainter>

namespace nookle {

QList<int> iconPictureSizes()
{
    return { 18, 36, 64 };
}

QImage iconPicture(int size, const QColor& color)
{
    QImage picture(size, size, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    MenuBarIcon::draw(painter, picture.rect(), color);
    return picture;
}

} // namespace nookle
