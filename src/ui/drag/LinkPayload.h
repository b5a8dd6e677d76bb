#pragma once

#include "DragPayload.h"

#include <QList>

namespace nookle {

struct LinkContent;

/// The formats of a link: those of browsers, in the same order, but without the one that receivers take for a list of
/// files.
[[nodiscard]] DragPayload linkPayload(const LinkContent& link);

/// The formats of several links: a list of their titles that lead to them, and one address on each line. The formats
/// that hold a single link are missing: a receiver that prefers one of these would lose the others.
[[nodiscard]] DragPayload linksPayload(const QList<LinkContent>& links);

} // namespace nookle
