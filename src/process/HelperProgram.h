#pragma once

#include <QString>

namespace nookle {

/// The path of the helper called `name` that belongs to a program in `programFolder`: beside it, as it is built, or
/// where it is installed. The first of these when there is none.
[[nodiscard]] QString helperProgram(const QString& programFolder, const QString& name);

} // namespace nookle
