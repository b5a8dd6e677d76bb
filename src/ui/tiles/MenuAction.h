#pragma once

#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace nookle {

/// One entry of a context menu.
struct MenuAction {
    QString title;
    bool isEnabled = true;
    std::function<void()> action;
};

/// A menu from top to bottom; an absent entry is a separator.
using MenuActions = std::vector<std::optional<MenuAction>>;

} // namespace nookle
