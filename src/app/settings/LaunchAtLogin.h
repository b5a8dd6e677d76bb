#pragma once

#include "Failure.h"

#include <optional>

namespace nookle {

class LoginItem;

/// Switches on and off that the program opens when the user logs in. Main thread only.
class LaunchAtLogin {
public:
    LaunchAtLogin() = delete;

    /// Registers or unregisters the program; says why it did not work.
    [[nodiscard]] static std::optional<Failure> setEnabled(LoginItem& item, bool enabled);
};

} // namespace nookle
