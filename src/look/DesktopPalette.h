#pragma once

#include <QPalette>

namespace nookle {

struct DesktopLook;

/// The colours of the program for that look. `own` are the toolkit's colours, which stay as far as they fit.
[[nodiscard]] QPalette desktopPalette(const QPalette& own, const DesktopLook& look);

} // namespace nookle
