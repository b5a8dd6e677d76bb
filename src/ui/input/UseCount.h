#pragma once

#include "Lifetime.h"

#include <functional>

namespace nookle {

/// Counts what the user has under way in the panel: open menus, a rubber band. One may begin before another has ended.
class UseCount final {
public:
    /// Called when the first one has begun (true) and when the last one has ended. May be empty.
    std::function<void(bool isInUse)> onChanged;

    /// One has begun (true) or ended.
    void change(bool begins);

    /// Calls `change`, and may outlive this object.
    [[nodiscard]] std::function<void(bool begins)> listener();

private:
    int m_count = 0;
    Lifetime m_lifetime;
};

} // namespace nookle
