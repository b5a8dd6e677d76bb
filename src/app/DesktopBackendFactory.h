#pragma once

#include "DesktopBackend.h"
#include "Failure.h"

#include <memory>
#include <optional>

namespace nookle {

/// Decides which display server the program runs on. Call it before the application object exists: the toolkit opens
/// its connection there. Fails when there is no display server that can be used.
[[nodiscard]] std::optional<Failure> selectDesktopBackend();

/// The backend for the display server that was selected. Call it once the application object exists.
[[nodiscard]] std::unique_ptr<DesktopBackend> makeDesktopBackend();

} // namespace nookle
