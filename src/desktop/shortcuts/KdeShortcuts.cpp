#include "KdeShortcuts.h"

#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QFileInfo>
#include <QKeySequence>

#include <algorithm>
#include <optional>
#include <utility>

namespace nookle {

namespace {

[[nodiscard]] QString service()
{
    return QStringLiteral("org.kde.kglobalaccel");
}

[[nodiscard]] QString path()
{
    return QStringLiteral("/kglobalaccel");
}

[[nodiscard]] QString serviceInterface()
{
    return QStringLiteral("org.kde.KGlobalAccel");
}

[[nodiscard]] QString componentInterface()
{
    return QStringLiteral("org.kde.kglobalaccel.Component");
}

/// This program's name among the components of the desktop that have shortcuts.
[[nodiscard]] QString component()
{
    return QStringLiteral("org.nookle.Nookle");
}

/// How the service names an action: by two identifiers, and by two names for the user.
[[nodiscard]] QStringList action(const Shortcut& shortcut)
{
    return { component(), shortcut.id, QStringLiteral("Nookle"), shortcut.description };
}

[[nodiscard]] QString shownKeys(const KdeKeys& keys)
{
    const auto at = [&](int place) { return QKeyCombination::fromCombined(keys.combinations.value(place)); };
    return QKeySequence(at(0), at(1), at(2), at(3)).toString(QKeySequence::NativeText);
}

/// None where several combinations are pressed one after the other.
[[nodiscard]] std::optional<QKeyCombination> combination(const KdeKeys& keys)
{
    const int first = keys.combinations.value(0);
    const bool isSingle = first != 0 && keys.combinations.value(1) == 0;
    return isSingle ? std::optional(QKeyCombination::fromCombined(first)) : std::nullopt;
}

// The flags of setShortcutKeys.
constexpr uint setPresent = 2;
constexpr uint isDefault = 8;

} // namespace

KdeShortcuts::KdeShortcuts(const QDBusConnection& bus, const QString& program)
    : m_bus(bus)
    , m_program(program)
{
    registerKdeKeysTypes();
    const auto* owner = new QDBusServiceWatcher(service(), m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(owner, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString& /*service*/, const QString& /*before*/, const QString& now) { ownerChanged(now); });
    m_bus.connect(service(), path(), serviceInterface(), QStringLiteral("yourShortcutsChanged"), this,
                  SLOT(keysChanged(QDBusMessage)));
    // Without a path: the service chooses it. The signal names the component.
    m_bus.connect(service(), QString(), componentInterface(), QStringLiteral("globalShortcutPressed"), this,
                  SLOT(pressed(QDBusMessage)));
}

KdeShortcuts::~KdeShortcuts()
{
    release();
}

void KdeShortcuts::bind(const QList<Shortcut>& shortcuts)
{
    release();
    m_shortcuts = shortcuts;
    start();
}

void KdeShortcuts::release()
{
    ++m_round;
    const bool isProgramThere = QFileInfo::exists(m_program);
    for (const Shortcut& each : std::exchange(m_shortcuts, {})) {
        if (isProgramThere)
            send(QStringLiteral("setInactive"), { action(each) });
        else
            send(QStringLiteral("unregister"), { component(), each.id });
    }
}

void KdeShortcuts::start()
{
    setStatus({ State::asking, {}, tr("The desktop has not answered yet.") });
    for (const Shortcut& each : std::as_const(m_shortcuts)) {
        call(QStringLiteral("defaultShortcutKeys"), { action(each) }, [this, each](const QDBusMessage& reply) {
            if (reply.type() == QDBusMessage::ErrorMessage)
                setStatus({ State::absent, {}, {} });
            else
                registerShortcut(each, kdeKeys(reply.arguments().value(0)));
        });
    }
}

void KdeShortcuts::registerShortcut(const Shortcut& shortcut, const KdeKeysList& defaultsBefore)
{
    const KdeKeysList wanted = kdeKeys(shortcut.keys);
    // The service would keep the keys of the former shortcut.
    if (!defaultsBefore.isEmpty() && defaultsBefore.first().combinations.value(0) != shortcut.keys.toCombined())
        send(QStringLiteral("unregister"), { component(), shortcut.id });
    send(QStringLiteral("doRegister"), { action(shortcut) });
    send(QStringLiteral("setShortcutKeys"), { action(shortcut), QVariant::fromValue(wanted), isDefault });
    call(QStringLiteral("setShortcutKeys"), { action(shortcut), QVariant::fromValue(wanted), setPresent },
         [this, id = shortcut.id](const QDBusMessage& reply) {
             if (id == m_shortcuts.first().id)
                 takeKeys(kdeKeys(reply.arguments().value(0)));
         });
}

void KdeShortcuts::takeKeys(const KdeKeysList& keys)
{
    if (!keys.isEmpty()) {
        setStatus({ State::bound, shownKeys(keys.first()), {}, combination(keys.first()) });
        return;
    }
    const QString wanted = shownKeys(kdeKeys(m_shortcuts.first().keys).first());
    setStatus(
        { State::unbound,
          {},
          tr("Another program may hold %1. The desktop's settings can give the shortcut other keys.").arg(wanted) });
}

void KdeShortcuts::pressed(const QDBusMessage& signal)
{
    const QVariantList arguments = signal.arguments();
    const QString id = arguments.value(1).toString();
    const bool isOwn = arguments.value(0).toString() == component()
        && std::any_of(m_shortcuts.begin(), m_shortcuts.end(), [&](const Shortcut& each) { return each.id == id; });
    if (isOwn)
        onPressed(id);
}

void KdeShortcuts::keysChanged(const QDBusMessage& signal)
{
    const QStringList changed = signal.arguments().value(0).toStringList();
    if (!m_shortcuts.isEmpty() && changed.value(0) == component() && changed.value(1) == m_shortcuts.first().id)
        takeKeys(kdeKeys(signal.arguments().value(1)));
}

void KdeShortcuts::ownerChanged(const QString& now)
{
    if (m_shortcuts.isEmpty())
        return;
    ++m_round;
    if (now.isEmpty())
        setStatus({ State::absent, {}, {} });
    else
        start();
}

void KdeShortcuts::call(const QString& method, const QVariantList& arguments, Reply reply)
{
    QDBusMessage message = QDBusMessage::createMethodCall(service(), path(), serviceInterface(), method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, watcher, round = m_round, reply = std::move(reply)] {
                watcher->deleteLater();
                if (round == m_round)
                    reply(watcher->reply());
            });
}

void KdeShortcuts::send(const QString& method, const QVariantList& arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(service(), path(), serviceInterface(), method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    m_bus.send(message);
}

} // namespace nookle
