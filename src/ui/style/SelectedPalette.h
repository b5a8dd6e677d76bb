#pragma once

#include <QPalette>

namespace nookle {

/// The colours of a selected part of the panel: `Window` is its ground, the panel's colour with a little of the
/// desktop's highlight. `Highlight` is its line, the desktop's highlight, made stronger where it is hard to tell from
/// the panel and the ground (3:1 at least). `WindowText` can be read on the ground (4.5:1).
[[nodiscard]] QPalette selectedPalette(const QPalette& palette);

} // namespace nookle
