#pragma once

#include "DragPayload.h"

#include <QString>

#include <functional>

namespace nookle {

/// Adds `text` to the payload in the formats of plain text.
void addText(DragPayload& payload, const QString& text);

/// Adds a text that is made each time somebody requests it.
void addTextOnRequest(DragPayload& payload, const std::function<QString()>& makeText);

/// The formats of a text.
[[nodiscard]] DragPayload textPayload(const QString& text);

} // namespace nookle
