#pragma once

#include "Failure.h"
#include "ShelfIndex.h"

#include <QJsonObject>

#include <variant>

namespace nookle {

/// Reads the JSON form of an index. The failure describes the first error.
[[nodiscard]] std::variant<ShelfIndex, Failure> readIndex(const QJsonObject& object);

} // namespace nookle
