#pragma once

class QPainter;
class QPixmap;
class QRectF;

namespace nookle {

/// Draws `picture` centred in `box`, as large as fits, with its aspect ratio. It covers whole pixels, so one that has
/// as many pixels as its place stays as sharp as it is.
void drawPicture(QPainter& painter, const QRectF& box, const QPixmap& picture);

} // namespace nookle
