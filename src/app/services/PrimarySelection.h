#pragma once

#include "ServicePasteboard.h"

namespace nookle {

/// The primary selection: the text or files that the user selected last, in any program. Waits for that program. Main
/// thread only.
[[nodiscard]] ServicePasteboard readPrimarySelection();

} // namespace nookle
