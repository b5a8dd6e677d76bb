#pragma once

#include <QObject>
#include <QPointer>
#include <QWindow>

#include <functional>
#include <memory>

namespace nookle {

class Cancellable;
class MainQueue;

/// Closes the panel's menu when the pointer has been away from it and from the panel for half a second. Under XWayland
/// a click on a Wayland program's window closes no menu, because the X server does not hear of it. Main thread only.
class AbandonedMenu final : public QObject {
    Q_OBJECT

public:
    /// The arguments must outlive this object.
    AbandonedMenu(QWindow& panel, MainQueue& queue);
    ~AbandonedMenu() override;

    /// Called before such a menu is closed. Set by the owner.
    std::function<void()> onAbandoned;

    /// Asked now and then while `menu` is open: whether the pointer has left the menu and the panel, though nothing
    /// told so. Set by the owner.
    std::function<bool(const QWindow& menu)> isPointerLost;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void shown(QWindow& window);
    void hidden();
    void pointerEntered(QWindow& window);
    void pointerLeft();
    void look();
    void closeMenu();

    QWindow& m_panel;
    MainQueue& m_queue;
    QPointer<QWindow> m_menu;
    /// The one of the two that the pointer is over.
    QPointer<QWindow> m_entered;
    std::unique_ptr<Cancellable> m_closing;
    std::unique_ptr<Cancellable> m_looking;
};

} // namespace nookle
