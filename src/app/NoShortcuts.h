#pragma once

#include "GlobalShortcuts.h"

namespace nookle {

/// For desktops on which no shortcut can be registered.
class NoShortcuts final : public GlobalShortcuts {
public:
    [[nodiscard]] std::unique_ptr<Cancellable> registerShortcut(QKeyCombination /*keys*/,
                                                                const QString& /*description*/,
                                                                std::function<void()> /*pressed*/) override
    {
        return nullptr;
    }
};

} // namespace nookle
