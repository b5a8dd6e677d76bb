#pragma once

#include <QString>

namespace nookle {

/// The version of this program, as its build names it: three numbers with dots between them.
[[nodiscard]] QString programVersion();

} // namespace nookle
