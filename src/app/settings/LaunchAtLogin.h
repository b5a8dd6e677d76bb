#pragma once

#include "Failure.h"

#include <optional>

namespace nookle {

class LoginItem;

/// Switches the start of the program at login on and off. Main thread only.
class LaunchAtLogin {
public:
    LaunchAtLogin() = delete;

    /// Registers or unregisters the program. Returns the reason of a failure.
    [[nodiscard]] static std::optional<Failure> setEnabled(LoginItem& item, bool enabled);
};

} // namespace nookle
