#pragma once

#include <QColor>

namespace nookle {

/// How far apart two colours are in lightness: from 1 for the same lightness to 21 for black and white. Both opaque.
[[nodiscard]] double contrast(const QColor& one, const QColor& other);

/// `share` is from 0 for `from` to 1 for `to`.
[[nodiscard]] QColor mixed(const QColor& from, const QColor& to, float share);

/// `color` over `ground`, mixed with as much of `stronger` as it needs for a contrast of at least `least` to `ground`;
/// `stronger` itself where no mixture has it.
[[nodiscard]] QColor strengthened(const QColor& color, const QColor& stronger, const QColor& ground, double least);

} // namespace nookle
