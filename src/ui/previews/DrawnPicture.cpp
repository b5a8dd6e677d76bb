#include "DrawnPicture.h"

#include "PixelGrid.h"

#include <QPainter>
#include <QPixmap>

namespace nookle {

void drawPicture(QPainter& painter, const QRectF& box, const QPixmap& picture)
{
    const PixelGrid grid(painter);
    QRectF place(QPointF(), QSizeF(picture.size()).scaled(box.size(), Qt::KeepAspectRatio));
    place.moveCenter(box.center());
    place = grid.aligned(place);
    const QSize pixels = (place.size() * grid.scale()).toSize();
    if (pixels.width() < picture.width() || pixels.height() < picture.height()) {
        // Scaled before, because the painter looks at four pixels of the picture for each pixel of its place.
        const QPixmap scaled = picture.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        painter.drawPixmap(place, scaled, QRectF(scaled.rect()));
        return;
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(place, picture, QRectF(picture.rect()));
}

} // namespace nookle
