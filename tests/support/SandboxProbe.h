#pragma once

#include "Sandbox.h"

#include <QProcess>

namespace nookle {

/// Whether programs can be confined here: containers often do not let them.
[[nodiscard]] inline bool sandboxWorks()
{
    return QProcess::execute(sandboxProgram(), sandboxArguments() + QStringList{ QStringLiteral("true") }) == 0;
}

} // namespace nookle
