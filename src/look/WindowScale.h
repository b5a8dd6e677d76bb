#pragma once

#include "ToolkitSettings.h"

#include <optional>

namespace nookle {

/// How many times larger than the resolution says the desktop wants windows to be; 1 where it wants nothing. The
/// toolkit follows the resolution by itself, which on some desktops has this factor in it already.
[[nodiscard]] int windowScale(const ToolkitSettings::Values& settings);

/// The resolution in dots an inch that the toolkit is to take instead of the one that the settings name, with which it
/// would make windows that no display can show; none where it can take that.
[[nodiscard]] std::optional<int> resolutionInstead(const ToolkitSettings::Values& settings);

} // namespace nookle
