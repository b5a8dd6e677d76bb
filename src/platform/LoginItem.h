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
        /// Registered, but switched off in the desktop's own settings.
        requiresApproval,
        /// Registered in a way that the desktop can do nothing with.
        notFound,
    };

    virtual ~LoginItem() = default;

    [[nodiscard]] virtual Status status() const = 0;

    /// Asks the desktop to start the program. What the user has switched off in the desktop's settings stays off.
    [[nodiscard]] virtual std::optional<Failure> registerItem() = 0;

    /// The desktop starts the program no more.
    [[nodiscard]] virtual std::optional<Failure> unregisterItem() = 0;

    /// Shows the desktop's own settings for programs that start by themselves.
    virtual void openSystemSettings() = 0;
};

} // namespace nookle
