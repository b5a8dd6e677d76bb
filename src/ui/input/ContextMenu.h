#pragma once

#include "MenuAction.h"

#include <QPoint>

#include <functional>
#include <memory>

class QMenu;

namespace nookle {

/// Makes a context menu; null when there are no entries.
[[nodiscard]] std::unique_ptr<QMenu> makeContextMenu(const MenuActions& actions);

/// Opens the menu at a position on the screen. It deletes itself when it is closed. `onOpenChanged` (may be empty) is
/// called when it has opened (true) and when it has closed.
void openContextMenu(std::unique_ptr<QMenu> menu, const QPoint& globalPosition,
                     const std::function<void(bool isOpen)>& onOpenChanged);

} // namespace nookle
