#pragma once

#include "Failure.h"

#include <optional>

namespace nookle {

/// Whether the desktop starts the program when the user logs in. Main thread only.
class LoginItem {
public:
    enum class Status {
        notRegistered,
        enabled,
        /// Registered, but disabled in the desktop's own settings.
        requiresApproval,
        /// Registered, but the desktop cannot use the registration.
        notFound,
    };

    virtual ~LoginItem() = default;

    [[nodiscard]] virtual Status status() const = 0;

    /// Asks the desktop to start the program at login. If the user has disabled it in the desktop's settings, it stays
    /// disabled.
    [[nodiscard]] virtual std::optional<Failure> registerItem() = 0;

    /// Asks the desktop not to start the program at login.
    [[nodiscard]] virtual std::optional<Failure> unregisterItem() = 0;

    /// Shows the desktop's own settings for programs that start at login.
    virtual void openSystemSettings() = 0;
};

} // namespace nookle
