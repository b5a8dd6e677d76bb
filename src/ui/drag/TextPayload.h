#pragma once

#include "DragPayload.h"

#include <QString>

namespace nookle {

/// Adds `text` to the payload in the formats of plain text.
void addText(DragPayload& payload, const QString& text);

/// The formats of a text.
[[nodiscard]] DragPayload textPayload(const QString& text);

} // namespace nookle
