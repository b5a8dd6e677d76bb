#pragma once

#include "DesktopBackend.h"
#include "Failure.h"

#include <memory>
#include <optional>

namespace nookle {

/// Selects the display server for the program. Call it before the application object is made, because that opens the
/// toolkit's connection. Fails when no usable display server is found.
[[nodiscard]] std::optional<Failure> selectDesktopBackend();

/// The backend for the display server that was selected. Call it once the application object exists.
[[nodiscard]] std::unique_ptr<DesktopBackend> makeDesktopBackend();

} // namespace nookle
