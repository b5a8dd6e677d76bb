#pragma once

#include "ServicePasteboard.h"

namespace nookle {

/// What is selected in whichever program selected something last. Waits for that program. Main thread only.
[[nodiscard]] ServicePasteboard readPrimarySelection();

} // namespace nookle
