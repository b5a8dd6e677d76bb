#include "ContextMenu.h"

#include "PlainText.h"

#include <QApplication>
#include <QMenu>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <chrono>

namespace nookle {

namespace {

/// In Wayland sessions no window has the focus between a menu and the window that had it before.
inline constexpr std::chrono::milliseconds timeToComeBack{ 300 };

/// The window that has the keyboard focus; null if it is not this program's.
[[nodiscard]] QWidget* focusedWindow()
{
    const QWindow* focused = QGuiApplication::focusWindow();
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found = std::find_if(windows.begin(), windows.end(), [focused](const QWidget* window) {
        return focused && window->windowHandle() == focused;
    });
    return found == windows.end() ? nullptr : *found;
}

/// The desktop may give the panel the focus after the click on it has opened a menu, and take it away while the menu is
/// open. The toolkit ignores both until the menu is closed, and would go by what was before until the focus changes
/// once more.
void noticeFocus()
{
    if (QApplication::activePopupWidget())
        return;
    QWidget* focused = focusedWindow();
    if (QApplication::activeWindow() != focused)
        QApplication::setActiveWindow(focused);
}

void menuHasGone()
{
    if (QGuiApplication::focusWindow())
        noticeFocus();
    else
        QTimer::singleShot(timeToComeBack, qApp, &noticeFocus);
}

} // namespace

std::unique_ptr<QMenu> makeContextMenu(const MenuActions& actions)
{
    if (actions.empty())
        return nullptr;
    auto menu = std::make_unique<QMenu>();
    for (const std::optional<MenuAction>& each : actions) {
        if (!each) {
            menu->addSeparator();
            continue;
        }
        QAction* entry = menu->addAction(menuTitle(each->title));
        entry->setEnabled(each->isEnabled);
        entry->setShortcut(each->key);
        entry->setCheckable(each->isChecked.has_value());
        entry->setChecked(each->isChecked.value_or(false));
        if (each->action)
            QObject::connect(entry, &QAction::triggered, entry, [action = each->action] { action(); });
    }
    return menu;
}

void openContextMenu(std::unique_ptr<QMenu> menu, const QPoint& globalPosition,
                     const std::function<void(bool isOpen)>& onOpenChanged)
{
    // The menu may outlive what it was opened for, and the next menu may open before this one is closed.
    if (onOpenChanged) {
        QObject::connect(menu.get(), &QMenu::aboutToShow, menu.get(), [onOpenChanged] { onOpenChanged(true); });
        QObject::connect(menu.get(), &QMenu::aboutToHide, menu.get(), [onOpenChanged] { onOpenChanged(false); });
    }
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(menu.get(), &QObject::destroyed, qApp, &menuHasGone);
    menu.release()->popup(globalPosition);
}

} // namespace nookle
