#pragma once

#include "ServicePasteboard.h"

namespace nookle {

class DropPayload;

/// The files or else the text of a selection.
[[nodiscard]] ServicePasteboard readSelection(const DropPayload& selection);

} // namespace nookle
