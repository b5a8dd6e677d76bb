#pragma once

#include "DragPayload.h"

namespace nookle {

struct LinkContent;

/// What a link offers: the formats of browsers, in their order, but none that stands for files.
[[nodiscard]] DragPayload linkPayload(const LinkContent& link);

} // namespace nookle
