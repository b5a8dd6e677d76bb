#pragma once

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>

namespace nookle {

/// Tells the desktop's portal which program is at the other end of the connection, by the name of its desktop file. The
/// portal takes this only as the first call on a connection. Main thread only.
class PortalRegistration final : public QObject {
    Q_OBJECT

public:
    enum class Outcome {
        /// Also when the portal is too old to be told.
        accepted,
        /// The portal finds no desktop file, although it has shortcuts to give.
        notInstalled,
        /// No portal runs, or it has no shortcuts.
        absent,
    };

    /// The completion may destroy this object.
    using Completion = std::function<void(Outcome)>;

    /// Starts the portal where that is necessary. Destroying this object drops the answer.
    PortalRegistration(const QDBusConnection& bus, Completion completion);

    /// The name of the desktop file, without its ending.
    [[nodiscard]] static QString programId();

private:
    using Answer = void (PortalRegistration::*)(const QDBusError& error);

    void call(const QDBusMessage& message, Answer answer);
    void registered(const QDBusError& error);
    void versionAnswered(const QDBusError& error);
    void finish(Outcome outcome);

    QDBusConnection m_bus;
    Completion m_completion;
    /// Why the portal does not accept this program.
    QString m_refusal;
    std::unique_ptr<QDBusPendingCallWatcher> m_call;
};

} // namespace nookle
