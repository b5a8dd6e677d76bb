#pragma once

#include "Failure.h"
#include "ShelfIndex.h"

#include <QJsonObject>

#include <variant>

namespace nookle {

/// Reads the JSON form of an index. The first thing that is wrong is the failure.
[[nodiscard]] std::variant<ShelfIndex, Failure> readIndex(const QJsonObject& object);

} // namespace nookle
