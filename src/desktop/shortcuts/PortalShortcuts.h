#pragma once

#include "Cancellable.h"
#include "PortalRegistration.h"
#include "PortalRequest.h"
#include "PortalShortcut.h"
#include "ShortcutService.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QList>

#include <functional>
#include <memory>

namespace nookle {

class MainQueue;

/// Shortcuts from the desktop's portal, which may ask the user. Follows the portal through its restarts.
class PortalShortcuts final : public ShortcutService {
    Q_OBJECT

public:
    /// How long a portal may take to make a session, in seconds. It may have to be started for that.
    static constexpr double patience = 30;
    /// When a portal that ended is started again, in seconds.
    static constexpr double restartDelay = 5;

    /// The portal learns the program's identity from the first call on a connection, so nothing else may call the
    /// portal on `bus`. `queue` must outlive this object.
    PortalShortcuts(const QDBusConnection& bus, MainQueue& queue);
    ~PortalShortcuts() override;

    void bind(const QList<Shortcut>& shortcuts) override;
    void release() override;

private Q_SLOTS:
    void activated(const QDBusMessage& signal);
    void shortcutsChanged(const QDBusMessage& signal);
    void sessionClosed(const QDBusMessage& signal);

private:
    using State = ShortcutStatus::State;

    void ownerChanged(const QString& before, const QString& now);
    void start();
    void registerProgram();
    void createSession();
    void enterSession(const QString& session);
    void bindShortcuts();
    void listAfterFailure();
    /// Asks which shortcuts of the session are bound.
    void listShortcuts(std::function<void(const PortalShortcutList& bound)> completion);
    [[nodiscard]] bool areAllIn(const PortalShortcutList& bound) const;
    [[nodiscard]] bool isAnyIn(const PortalShortcutList& bound) const;
    /// Takes the keys of the first shortcut, which may have none. False if no shortcut is bound.
    bool takeKeys(const PortalShortcutList& bound);
    [[nodiscard]] static QString notInstalled();
    [[nodiscard]] static QString noKeys();
    [[nodiscard]] static QString unknownKeys();
    void setState(State state, const QString& obstacle);
    void loseService();
    void dropRequests();
    void closeSession();
    void leaveSession();

    QDBusConnection m_bus;
    MainQueue& m_queue;
    QList<Shortcut> m_shortcuts;
    /// Whether the running portal knows this program.
    bool m_isAccepted = false;
    bool m_isLost = false;
    /// The session's object in the portal; empty without a session.
    QString m_session;
    std::unique_ptr<PortalRegistration> m_registration;
    std::unique_ptr<PortalRequest> m_request;
    std::unique_ptr<Cancellable> m_patience;
    std::unique_ptr<Cancellable> m_restart;
};

} // namespace nookle
