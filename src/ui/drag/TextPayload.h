#pragma once

#include "DragPayload.h"

#include <QString>

namespace nookle {

/// Adds the formats of plain text.
void addText(DragPayload& payload, const QString& text);

/// What a text offers.
[[nodiscard]] DragPayload textPayload(const QString& text);

} // namespace nookle
