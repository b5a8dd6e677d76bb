#pragma once

#include "ServicePasteboard.h"

namespace nookle {

class Pasteboard;

/// The files or the text that the user selected last, in any program. Waits for that program. Main thread only.
[[nodiscard]] ServicePasteboard readSelection(const Pasteboard& pasteboard);

} // namespace nookle
