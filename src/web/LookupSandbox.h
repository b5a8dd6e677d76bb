#pragma once

#include <QStringList>

namespace nookle {

/// The sandbox arguments that the lookup of web pages needs in addition to those of every helper. They give it the
/// network, this computer's certificates, and its name resolution settings.
[[nodiscard]] QStringList lookupSandboxArguments();

} // namespace nookle
