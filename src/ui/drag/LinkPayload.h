#pragma once

#include "DragPayload.h"

namespace nookle {

struct LinkContent;

/// The formats of a link: those of browsers, in the same order, but without the one that receivers take for a list of
/// files.
[[nodiscard]] DragPayload linkPayload(const LinkContent& link);

} // namespace nookle
