#pragma once

#include <QStringList>

namespace nookle {

/// The arguments of `bwrap` that confine a program. The program has no network, sees no other processes, can read the
/// system's files, gets an empty folder for temporary files, and sees no file of the user. It is killed when the
/// process that started it ends. The caller appends whatever else the program needs, and the program itself. Start it
/// with `makeChildProcess`.
[[nodiscard]] QStringList sandboxArguments();

/// The path of `bwrap`; empty if it is not installed.
[[nodiscard]] QString sandboxProgram();

} // namespace nookle
