#include "PortalRegistration.h"

#include "Log.h"
#include "PortalNames.h"

#include <QVariantMap>

#include <limits>
#include <utility>

namespace nookle {

namespace {

[[nodiscard]] QDBusMessage portalCall(const QString& interface, const QString& method)
{
    return QDBusMessage::createMethodCall(portalService(), portalPath(), interface, method);
}

/// Older portals cannot be told who calls: they find out by themselves, as far as they can.
[[nodiscard]] bool knowsNoRegistry(QDBusError::ErrorType error)
{
    return error == QDBusError::UnknownMethod || error == QDBusError::UnknownInterface
        || error == QDBusError::UnknownObject;
}

/// The portal's own errors: it runs, and refuses.
[[nodiscard]] bool isRefusal(const QDBusError& error)
{
    return error.name().startsWith(QLatin1String("org.freedesktop.portal.Error."));
}

} // namespace

PortalRegistration::PortalRegistration(const QDBusConnection& bus, Completion completion)
    : m_bus(bus)
    , m_completion(std::move(completion))
{
    QDBusMessage registration =
        portalCall(QStringLiteral("org.freedesktop.host.portal.Registry"), QStringLiteral("Register"));
    registration << programId() << QVariantMap();
    call(registration, &PortalRegistration::registered);
}

QString PortalRegistration::programId()
{
    return QStringLiteral("org.nookle.Nookle");
}

void PortalRegistration::call(const QDBusMessage& message, Answer answer)
{
    m_call = std::make_unique<QDBusPendingCallWatcher>(m_bus.asyncCall(message, std::numeric_limits<int>::max()));
    connect(m_call.get(), &QDBusPendingCallWatcher::finished, this, [this, answer] {
        // Not deleted in its own signal.
        m_call->deleteLater();
        (this->*answer)(m_call.release()->error());
    });
}

void PortalRegistration::registered(const QDBusError& error)
{
    if (!error.isValid() || knowsNoRegistry(error.type())) {
        finish(Outcome::accepted);
        return;
    }
    if (!isRefusal(error)) {
        finish(Outcome::absent);
        return;
    }
    // The refusal matters only where the portal has shortcuts at all.
    m_refusal = error.message();
    QDBusMessage get = portalCall(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    get << shortcutsInterface() << QStringLiteral("version");
    call(get, &PortalRegistration::versionAnswered);
}

void PortalRegistration::versionAnswered(const QDBusError& error)
{
    if (error.isValid()) {
        finish(Outcome::absent);
        return;
    }
    logLine(QStringLiteral("the desktop does not accept the program as %1: %2").arg(programId(), m_refusal));
    finish(Outcome::notInstalled);
}

void PortalRegistration::finish(Outcome outcome)
{
    // The completion may destroy this object.
    const Completion completion = std::move(m_completion);
    completion(outcome);
}

} // namespace nookle
