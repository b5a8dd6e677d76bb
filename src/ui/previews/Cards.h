#pragma once

#include <QString>

class QPainter;
class QPalette;
class QPixmap;
class QRect;

namespace nookle {

// The previews of items without a file, drawn as small pieces of paper.

/// A miniature page with the beginning of the text.
void paintTextPage(QPainter& painter, const QRect& box, const QString& text, const QPalette& palette);

/// A card with the icon of the linked site, or with a link symbol if `icon` is null.
void paintLinkCard(QPainter& painter, const QRect& box, const QPixmap& icon, const QPalette& palette);

} // namespace nookle
