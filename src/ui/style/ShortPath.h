#pragma once

#include <QString>

namespace nookle {

/// The path, or if it is long its first folder and as much of its end as fits, with "…" for the folders between. The
/// last name stays whole, however long it is.
[[nodiscard]] QString shortPath(const QString& path);

} // namespace nookle
