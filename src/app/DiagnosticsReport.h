#pragma once

#include <QString>

namespace nookle {

/// What somebody who looks into a problem must know of this machine, one fact a line: versions, the session, the
/// displays, the services on the session bus. Holds nothing of the shelf and no name of a file or of the user. It is
/// English in every language, because it is written for whoever reads the report. Waits at most a second for the bus.
/// The application object must exist.
[[nodiscard]] QString diagnosticsReport();

} // namespace nookle
