#pragma once

#include "GlobalShortcuts.h"
#include "KdeShortcuts.h"
#include "Lifetime.h"
#include "MainQueue.h"
#include "PortalShortcuts.h"
#include "UserDefaults.h"

#include <QDBusConnection>
#include <QList>

#include <map>
#include <memory>

namespace nookle {

/// Shortcuts for sessions whose display server has none for programs. The desktop's portal gives them, else KDE's
/// service; where neither does, one log line names the command to which the user may bind keys. A "no" of the user is
/// kept in the settings, and the user is not asked again at the next start.
class SessionShortcuts final : public GlobalShortcuts {
    Q_OBJECT

public:
    SessionShortcuts();
    /// With another clock and other settings.
    SessionShortcuts(std::unique_ptr<MainQueue> queue, std::unique_ptr<UserDefaults> settings);

    /// Null only when the key is unknown. Shortcuts that are registered in one turn of the event loop are asked for
    /// together.
    [[nodiscard]] std::unique_ptr<Cancellable> registerShortcut(QKeyCombination keys, const QString& description,
                                                                std::function<void()> pressed) override;
    [[nodiscard]] QString boundKeys() const override { return m_shown.keys; }
    [[nodiscard]] std::optional<QKeyCombination> boundCombination() const override { return m_shown.combination; }
    [[nodiscard]] QString wantedKeys() const override;
    [[nodiscard]] QString obstacle() const override { return m_shown.obstacle; }
    [[nodiscard]] bool canAskAgain() const override;
    void askAgain() override;

private:
    using State = ShortcutStatus::State;

    struct Registered {
        Shortcut shortcut;
        std::shared_ptr<const std::function<void()>> pressed;
    };

    void unregister(int number);
    void bindSoon();
    void bind();
    [[nodiscard]] QList<Shortcut> shortcuts() const;
    void setDeclined(bool isDeclined);
    void portalChanged();
    void kdeChanged();
    void showAbsence();
    void show(const ShortcutStatus& status);
    void press(const QString& id) const;

    std::unique_ptr<MainQueue> m_queue;
    std::unique_ptr<UserDefaults> m_settings;
    /// Ends the connection to the bus after the services have used it.
    Cancellable m_disconnection;
    QDBusConnection m_bus;
    PortalShortcuts m_portal;
    KdeShortcuts m_kde;
    /// By their number, counted from 1.
    std::map<int, Registered> m_registered;
    bool m_willBind = false;
    bool m_hasNamedCommand = false;
    ShortcutStatus m_shown;
    Lifetime m_lifetime;
};

} // namespace nookle
