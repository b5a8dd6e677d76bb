#pragma once

#include <QStringList>

namespace nookle {

/// The arguments of `bwrap` that confine a program: no network, no other processes, the system's own files to read, an
/// empty folder for temporary files, nothing of the user's. The process dies with the one that started it. What else
/// the program needs, and the program itself, follow these arguments. To be started by `makeChildProcess`.
[[nodiscard]] QStringList sandboxArguments();

/// The path of `bwrap`; empty where it is not installed.
[[nodiscard]] QString sandboxProgram();

} // namespace nookle
