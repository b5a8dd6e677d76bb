#pragma once

#include <functional>

namespace nookle {

/// A tray of the desktop, which shows icons of programs. It may start and stop at any time. Main thread only.
class TrayHost {
public:
    virtual ~TrayHost() = default;

    [[nodiscard]] virtual bool isPresent() const = 0;

    /// Called when the tray has started or stopped. Set by the object that watches the tray.
    std::function<void()> onChanged = [] {};
};

} // namespace nookle
