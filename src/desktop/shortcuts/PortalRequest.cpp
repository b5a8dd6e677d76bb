#include "PortalRequest.h"

#include "PortalNames.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <limits>
#include <utility>

namespace nookle {

namespace {

[[nodiscard]] QString requestInterface()
{
    return QStringLiteral("org.freedesktop.portal.Request");
}

/// Different for each request of the program.
[[nodiscard]] QString takeToken()
{
    static int lastNumber = 0;
    return QStringLiteral("nookle_%1").arg(++lastNumber);
}

[[nodiscard]] QString requestPath(const QDBusConnection& bus, const QString& token)
{
    const QString sender = bus.baseService().mid(1).replace(QLatin1Char('.'), QLatin1Char('_'));
    return QStringLiteral("%1/request/%2/%3").arg(portalPath(), sender, token);
}

} // namespace

PortalRequest::PortalRequest(const QDBusConnection& bus, const QString& method, QVariantList arguments,
                             QVariantMap options, Completion completion)
    : m_bus(bus)
    , m_completion(std::move(completion))
{
    const QString token = takeToken();
    m_path = requestPath(bus, token);
    // Before the call, because the answer may come before the call's own reply.
    m_bus.connect(portalService(), m_path, requestInterface(), QStringLiteral("Response"), this,
                  SLOT(respond(uint, QVariantMap)));
    QDBusMessage call = QDBusMessage::createMethodCall(portalService(), portalPath(), shortcutsInterface(), method);
    options.insert(QStringLiteral("handle_token"), token);
    arguments.append(options);
    call.setArguments(arguments);
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call, std::numeric_limits<int>::max()), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        // The completion may destroy this object, but not the watcher in its own signal.
        watcher->setParent(nullptr);
        watcher->deleteLater();
        if (watcher->isError())
            finish(Outcome::refused, {});
    });
}

PortalRequest::~PortalRequest()
{
    if (m_completion)
        m_bus.send(
            QDBusMessage::createMethodCall(portalService(), m_path, requestInterface(), QStringLiteral("Close")));
}

void PortalRequest::respond(uint response, const QVariantMap& results)
{
    constexpr uint success = 0;
    constexpr uint cancelledByTheUser = 1;
    if (response == success)
        finish(Outcome::granted, results);
    else
        finish(response == cancelledByTheUser ? Outcome::declined : Outcome::failed, results);
}

void PortalRequest::finish(Outcome outcome, const QVariantMap& results)
{
    // The completion may destroy this object.
    if (const Completion completion = std::exchange(m_completion, nullptr))
        completion(outcome, results);
}

} // namespace nookle
