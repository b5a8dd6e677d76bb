#pragma once

#include "ProxySettings.h"

namespace nookle {

/// What the environment says about proxies, or else the settings of the desktop that runs: Plasma's, or those that the
/// others share with GNOME.
[[nodiscard]] ProxySettings systemProxies();

} // namespace nookle
