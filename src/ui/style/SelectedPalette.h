#pragma once

#include <QPalette>

namespace nookle {

/// The colours of a selected part of the panel: `Window` is its ground, the desktop's highlight, made stronger where
/// it is hard to tell from the panel (contrast below 3:1). `WindowText` and `Highlight` stand out from it: the colour
/// of the desktop for highlighted text (3:1 at least), or else black or white (4.5:1).
[[nodiscard]] QPalette selectedPalette(const QPalette& palette);

} // namespace nookle
