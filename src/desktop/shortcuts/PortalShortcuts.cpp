#include "PortalShortcuts.h"

#include "KeyNames.h"
#include "MainQueue.h"
#include "PortalNames.h"

#include <QDBusObjectPath>
#include <QDBusServiceWatcher>
#include <QKeySequence>
#include <QStringList>

#include <algorithm>
#include <optional>
#include <utility>

namespace nookle {

namespace {

[[nodiscard]] QString sessionInterface()
{
    return QStringLiteral("org.freedesktop.portal.Session");
}

/// The keys in the notation of the portal.
[[nodiscard]] QString trigger(QKeyCombination keys)
{
    const Qt::KeyboardModifiers held = keys.keyboardModifiers();
    QStringList names;
    if (held.testFlag(Qt::ControlModifier))
        names.append(QStringLiteral("CTRL"));
    if (held.testFlag(Qt::AltModifier))
        names.append(QStringLiteral("ALT"));
    if (held.testFlag(Qt::ShiftModifier))
        names.append(QStringLiteral("SHIFT"));
    if (held.testFlag(Qt::MetaModifier))
        names.append(QStringLiteral("LOGO"));
    const QString key = QKeySequence(keys.key()).toString();
    names.append(key.size() == 1 ? key.toLower() : key);
    return names.join(QLatin1Char('+'));
}

[[nodiscard]] PortalShortcutList wanted(const QList<Shortcut>& shortcuts)
{
    PortalShortcutList list;
    for (const Shortcut& each : shortcuts)
        list.append({ each.id,
                      { { QStringLiteral("description"), each.description },
                        { QStringLiteral("preferred_trigger"), trigger(each.keys) } } });
    return list;
}

[[nodiscard]] std::optional<PortalShortcut> find(const PortalShortcutList& shortcuts, const QString& id)
{
    const auto found =
        std::find_if(shortcuts.begin(), shortcuts.end(), [&](const auto& each) { return each.id == id; });
    return found == shortcuts.end() ? std::nullopt : std::optional(*found);
}

/// What is bound, after the results of a request. None after a failure.
[[nodiscard]] PortalShortcutList boundShortcuts(const QVariantMap& results)
{
    return portalShortcuts(results.value(QStringLiteral("shortcuts")));
}

/// Some portals send the path as a text.
[[nodiscard]] QString objectPath(const QVariant& value)
{
    return value.canConvert<QDBusObjectPath>() ? value.value<QDBusObjectPath>().path() : value.toString();
}

} // namespace

PortalShortcuts::PortalShortcuts(const QDBusConnection& bus, MainQueue& queue)
    : m_bus(bus)
    , m_queue(queue)
{
    registerPortalShortcutTypes();
    const auto* owner = new QDBusServiceWatcher(portalService(), m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(
        owner, &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString& /*service*/, const QString& before, const QString& now) { ownerChanged(before, now); });
    m_bus.connect(portalService(), portalPath(), shortcutsInterface(), QStringLiteral("Activated"), this,
                  SLOT(activated(QDBusMessage)));
    m_bus.connect(portalService(), portalPath(), shortcutsInterface(), QStringLiteral("ShortcutsChanged"), this,
                  SLOT(shortcutsChanged(QDBusMessage)));
}

PortalShortcuts::~PortalShortcuts()
{
    release();
}

void PortalShortcuts::bind(const QList<Shortcut>& shortcuts)
{
    // A session binds shortcuts only once.
    release();
    m_shortcuts = shortcuts;
    start();
}

void PortalShortcuts::release()
{
    m_shortcuts.clear();
    m_isLost = false;
    dropRequests();
    closeSession();
}

void PortalShortcuts::dropRequests()
{
    m_registration.reset();
    m_request.reset();
    m_patience.reset();
    m_restart.reset();
}

void PortalShortcuts::start()
{
    m_isLost = false;
    m_patience = m_queue.after(patience, [this] { setState(State::absent, tr("The desktop does not answer.")); });
    setState(State::asking, tr("The desktop has not answered yet."));
    if (m_isAccepted)
        createSession();
    else
        registerProgram();
}

void PortalShortcuts::registerProgram()
{
    m_registration = std::make_unique<PortalRegistration>(m_bus, [this](PortalRegistration::Outcome outcome) {
        m_isAccepted = outcome == PortalRegistration::Outcome::accepted;
        if (m_isAccepted) {
            createSession();
            return;
        }
        m_patience.reset();
        const bool isInstalled = outcome != PortalRegistration::Outcome::notInstalled;
        setState(State::absent, isInstalled ? QString() : notInstalled());
    });
}

QString PortalShortcuts::notInstalled()
{
    return tr("The desktop gives shortcuts only to programs that are installed. It does not find %1.")
        .arg(QString(PortalRegistration::programId() + QStringLiteral(".desktop")));
}

void PortalShortcuts::createSession()
{
    // Always the same, because a desktop that does not know the program keeps the user's choice under this name.
    const QVariantMap options{ { QStringLiteral("session_handle_token"), QStringLiteral("nookle") } };
    const auto created = [this](PortalRequest::Outcome outcome, const QVariantMap& results) {
        m_patience.reset();
        const QString session = objectPath(results.value(QStringLiteral("session_handle")));
        if (outcome == PortalRequest::Outcome::granted && !session.isEmpty())
            enterSession(session);
        else
            setState(State::absent, {});
    };
    m_request =
        std::make_unique<PortalRequest>(m_bus, QStringLiteral("CreateSession"), QVariantList(), options, created);
}

void PortalShortcuts::enterSession(const QString& session)
{
    m_session = session;
    setState(State::asking, tr("The desktop has not answered yet."));
    m_bus.connect(portalService(), m_session, sessionInterface(), QStringLiteral("Closed"), this,
                  SLOT(sessionClosed(QDBusMessage)));
    // Some portals have bound again what they bound at the last start, and open the desktop's settings for each program
    // that asks.
    listShortcuts([this](const PortalShortcutList& bound) {
        if (areAllIn(bound))
            takeKeys(bound);
        else
            bindShortcuts();
    });
}

void PortalShortcuts::bindShortcuts()
{
    const QString noParentWindow;
    const QVariantList arguments{ QVariant::fromValue(QDBusObjectPath(m_session)),
                                  QVariant::fromValue(wanted(m_shortcuts)), noParentWindow };
    const auto answered = [this](PortalRequest::Outcome outcome, const QVariantMap& results) {
        if (outcome == PortalRequest::Outcome::refused) {
            setState(State::unbound, tr("The desktop has refused the shortcut."));
        } else if (outcome == PortalRequest::Outcome::declined) {
            closeSession();
            setState(State::declined, tr("You have declined the shortcut."));
        } else if (!takeKeys(boundShortcuts(results))) {
            listAfterFailure();
        }
    };
    m_request =
        std::make_unique<PortalRequest>(m_bus, QStringLiteral("BindShortcuts"), arguments, QVariantMap(), answered);
}

// Some portals report a failure although they have bound the shortcut. GNOME's reports one when the user has declined,
// and would ask at each start. The session stays open, for keys that work all the same.
void PortalShortcuts::listAfterFailure()
{
    listShortcuts([this](const PortalShortcutList& bound) {
        if (!takeKeys(bound))
            setState(State::declined, tr("You have declined the shortcut, or the desktop could not bind it."));
    });
}

void PortalShortcuts::listShortcuts(std::function<void(const PortalShortcutList& bound)> completion)
{
    const QVariantList arguments{ QVariant::fromValue(QDBusObjectPath(m_session)) };
    const auto listed = [completion = std::move(completion)](PortalRequest::Outcome /*outcome*/,
                                                             const QVariantMap& results) {
        completion(boundShortcuts(results));
    };
    m_request =
        std::make_unique<PortalRequest>(m_bus, QStringLiteral("ListShortcuts"), arguments, QVariantMap(), listed);
}

bool PortalShortcuts::areAllIn(const PortalShortcutList& bound) const
{
    return std::all_of(m_shortcuts.begin(), m_shortcuts.end(),
                       [&](const Shortcut& each) { return find(bound, each.id).has_value(); });
}

bool PortalShortcuts::isAnyIn(const PortalShortcutList& bound) const
{
    return std::any_of(m_shortcuts.begin(), m_shortcuts.end(),
                       [&](const Shortcut& each) { return find(bound, each.id).has_value(); });
}

bool PortalShortcuts::takeKeys(const PortalShortcutList& bound)
{
    if (const auto first = find(bound, m_shortcuts.first().id)) {
        const QString description = first->properties.value(QStringLiteral("trigger_description")).toString();
        const QString keys = readableKeys(description);
        setStatus(
            { State::bound, keys, keys.isEmpty() ? unknownKeys() : QString(), describedCombination(description) });
        return true;
    }
    if (!isAnyIn(bound))
        return false;
    setState(State::bound, noKeys());
    return true;
}

QString PortalShortcuts::noKeys()
{
    return tr("No keys are set for it in the desktop's settings.");
}

QString PortalShortcuts::unknownKeys()
{
    return tr("The desktop does not say which keys are bound.");
}

void PortalShortcuts::setState(State state, const QString& obstacle)
{
    setStatus({ state, {}, obstacle });
}

void PortalShortcuts::activated(const QDBusMessage& signal)
{
    if (m_session.isEmpty() || objectPath(signal.arguments().value(0)) != m_session)
        return;
    // A portal that reported a failure has bound the keys all the same.
    if (status().state != State::bound)
        setState(State::bound, unknownKeys());
    onPressed(signal.arguments().value(1).toString());
}

void PortalShortcuts::shortcutsChanged(const QDBusMessage& signal)
{
    if (m_session.isEmpty() || objectPath(signal.arguments().value(0)) != m_session)
        return;
    const PortalShortcutList changed = portalShortcuts(signal.arguments().value(1));
    if (find(changed, m_shortcuts.first().id) || status().state != State::bound) {
        takeKeys(changed);
        return;
    }
    // The user may have taken its keys away; or the portal tells only of others that have changed.
    listShortcuts([this](const PortalShortcutList& bound) {
        if (!takeKeys(bound))
            setState(State::bound, noKeys());
    });
}

void PortalShortcuts::sessionClosed(const QDBusMessage& signal)
{
    if (signal.path() != m_session)
        return;
    m_request.reset();
    leaveSession();
    setState(State::unbound, tr("The desktop has ended the shortcut."));
}

void PortalShortcuts::ownerChanged(const QString& before, const QString& now)
{
    m_isAccepted = false;
    if (!before.isEmpty())
        loseService();
    // A portal that was started for a request of this object is answering that.
    const bool isAwaited = m_isLost || status().state == State::absent;
    if (!now.isEmpty() && isAwaited && !m_shortcuts.isEmpty())
        bind(QList<Shortcut>(m_shortcuts));
}

void PortalShortcuts::loseService()
{
    const State state = status().state;
    dropRequests();
    leaveSession();
    if (m_shortcuts.isEmpty() || state == State::declined)
        return;
    m_isLost = true;
    // Not when it ended without having bound anything: it might do so for ever.
    if (state == State::bound)
        m_restart = m_queue.after(restartDelay, [this] { start(); });
    setState(state == State::bound ? State::unbound : State::absent,
             tr("The desktop's service for shortcuts has ended."));
}

void PortalShortcuts::closeSession()
{
    if (m_session.isEmpty())
        return;
    m_bus.send(QDBusMessage::createMethodCall(portalService(), m_session, sessionInterface(), QStringLiteral("Close")));
    leaveSession();
}

void PortalShortcuts::leaveSession()
{
    if (m_session.isEmpty())
        return;
    m_bus.disconnect(portalService(), m_session, sessionInterface(), QStringLiteral("Closed"), this,
                     SLOT(sessionClosed(QDBusMessage)));
    m_session.clear();
}

} // namespace nookle
