#pragma once

#include "ToolkitSettings.h"

namespace nookle {

/// How many times larger than the resolution says the desktop wants windows to be; 1 where it wants nothing. The
/// toolkit follows the resolution by itself, which on some desktops has this factor in it already.
[[nodiscard]] int windowScale(const ToolkitSettings::Values& settings);

} // namespace nookle
