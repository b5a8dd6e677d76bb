#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace nookle {

/// The shelf's own pictograms, drawn in one style at any size.
enum class Symbol { pin, pinFill, tray, link, document, missingFile, stack };

/// The weight of the lines. Large symbols use `light`.
enum class SymbolWeight { light, medium, semibold };

/// Draws `symbol` in `color`, as large as fits into `box`, centred.
void drawSymbol(QPainter& painter, Symbol symbol, SymbolWeight weight, const QRectF& box, const QColor& color);

} // namespace nookle
