#pragma once

#include <QString>

namespace nookle {

/// The path of the helper `name` of a program in `programFolder`. The helper lies beside the program (in a build) or in
/// the folder of installed helpers. If it is in neither, the path beside the program.
[[nodiscard]] QString helperProgram(const QString& programFolder, const QString& name);

} // namespace nookle
