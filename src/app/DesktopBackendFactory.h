#pragma once

#include "BackendChoice.h"
#include "DesktopBackend.h"
#include "ToolkitEnvironment.h"

#include <memory>
#include <variant>

namespace nookle {

/// Chooses the way to the display for the program. Fails when no usable display server is found. The environment
/// variable NOOKLE_BACKEND overrides the choice.
[[nodiscard]] std::variant<BackendChoice, Failure> selectDesktopBackend();

/// What the toolkit is to be told about the size of windows there. Ask before the application object exists.
[[nodiscard]] ToolkitScale desktopScale(DesktopKind kind);

/// The backend for the display server that was chosen. Call it once the application object exists.
[[nodiscard]] std::unique_ptr<DesktopBackend> makeDesktopBackend(DesktopKind kind);

} // namespace nookle
