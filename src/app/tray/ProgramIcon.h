#pragma once

#include <QIcon>

namespace nookle {

/// The program's icon for its windows: the one that is installed in the desktop's icon theme, or else the same drawn
/// here. Main thread only.
[[nodiscard]] QIcon programIcon();

} // namespace nookle
