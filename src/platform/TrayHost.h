#pragma once

#include <functional>

namespace nookle {

/// A part of the desktop that shows the icons of programs. It may come and go at any time. Main thread only.
class TrayHost {
public:
    virtual ~TrayHost() = default;

    [[nodiscard]] virtual bool isPresent() const = 0;

    /// It has come or gone. Set by the one that watches it.
    std::function<void()> onChanged = [] {};
};

} // namespace nookle
