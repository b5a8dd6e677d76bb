#pragma once

#include <QStringList>

namespace nookle {

/// What the lookup of web pages needs in its sandbox beyond what every helper does: the network, the certificates of
/// this computer, and how it reaches other ones.
[[nodiscard]] QStringList lookupSandboxArguments();

} // namespace nookle
