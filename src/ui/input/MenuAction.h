#pragma once

#include <QKeySequence>
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
    /// The key that does the same, for display.
    QKeySequence key = {};
    /// Whether the entry has a check mark; none for an entry that cannot have one.
    std::optional<bool> isChecked = {};
};

/// A menu from top to bottom; an absent entry is a separator.
using MenuActions = std::vector<std::optional<MenuAction>>;

} // namespace nookle
