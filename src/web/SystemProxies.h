#pragma once

#include "ProxySettings.h"

namespace nookle {

/// The proxies from the environment variables, or else from the settings of the running desktop: those of Plasma, or
/// GNOME's, which the other desktops share.
[[nodiscard]] ProxySettings systemProxies();

} // namespace nookle
