#pragma once

#include "DragPayload.h"

#include <QList>

namespace nookle {

struct LinkContent;

/// The formats of a link: those of browsers, in the same order, but without the one that receivers take for a list of
/// files.
[[nodiscard]] DragPayload linkPayload(const LinkContent& link);

/// Adds a page with the titles of several links, which lead to them. The formats that hold a single link are missing: a
/// receiver that prefers one of these would lose the others.
void addLinks(DragPayload& payload, const QList<LinkContent>& links);

} // namespace nookle
