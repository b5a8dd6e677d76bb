#pragma once

#include "GlobalShortcuts.h"

#include <memory>
#include <vector>

namespace nookle {

/// The handlers that are installed with some implementation of `GlobalShortcuts`. They may come and go while one of
/// them runs.
class ShortcutHandlers final {
public:
    [[nodiscard]] std::unique_ptr<ShortcutRegistration> install(GlobalShortcuts::Handler handler);

    /// Whether a handler took the press for its own.
    bool press(ShortcutId id);

private:
    class Registration;

    std::vector<std::weak_ptr<GlobalShortcuts::Handler>> m_handlers;
};

} // namespace nookle
