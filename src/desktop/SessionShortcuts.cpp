#include "SessionShortcuts.h"

#include "KeyNames.h"
#include "Log.h"
#include "QtMainQueue.h"
#include "SettingsUserDefaults.h"

#include <QCoreApplication>
#include <QKeySequence>

#include <algorithm>
#include <utility>

namespace nookle {

namespace {

[[nodiscard]] QString declinedKey()
{
    return QStringLiteral("shortcutDeclined");
}

[[nodiscard]] QString busName()
{
    return QStringLiteral("nookle-shortcuts");
}

/// Shows and hides the shelf.
[[nodiscard]] QString command()
{
    return QStringLiteral("gdbus call --session -d org.nookle.Nookle -o /org/nookle/Nookle"
                          " -m org.freedesktop.Application.ActivateAction toggle '[]' '{}'");
}

} // namespace

SessionShortcuts::SessionShortcuts()
    : SessionShortcuts(std::make_unique<QtMainQueue>(), std::make_unique<SettingsUserDefaults>())
{
}

// A connection to the bus of its own, because the toolkit calls the portal on the usual one.
SessionShortcuts::SessionShortcuts(std::unique_ptr<MainQueue> queue, std::unique_ptr<UserDefaults> settings)
    : m_queue(std::move(queue))
    , m_settings(std::move(settings))
    , m_disconnection([] { QDBusConnection::disconnectFromBus(busName()); })
    , m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, busName()))
    , m_portal(m_bus, *m_queue)
    , m_kde(m_bus, QCoreApplication::applicationFilePath())
{
    m_portal.onChanged = [this] { portalChanged(); };
    m_portal.onPressed = [this](const QString& id) { press(id); };
    m_kde.onChanged = [this] { kdeChanged(); };
    m_kde.onPressed = [this](const QString& id) { press(id); };
}

std::unique_ptr<Cancellable> SessionShortcuts::registerShortcut(QKeyCombination keys, const QString& description,
                                                                std::function<void()> pressed)
{
    if (keys.key() == Qt::Key_unknown)
        return nullptr;
    // The lowest one that is free: a shortcut that is registered again keeps its name in the desktop's settings.
    int number = 1;
    while (m_registered.contains(number))
        ++number;
    const QString id = QStringLiteral("shortcut-%1").arg(number);
    m_registered.insert_or_assign(
        number,
        Registered{ { id, keys, description }, std::make_shared<const std::function<void()>>(std::move(pressed)) });
    bindSoon();
    return std::make_unique<Cancellable>(m_lifetime.guarded([this, number] { unregister(number); }));
}

void SessionShortcuts::unregister(int number)
{
    m_registered.erase(number);
    if (!m_registered.empty()) {
        bindSoon();
        return;
    }
    m_portal.release();
    m_kde.release();
    show({});
}

void SessionShortcuts::bindSoon()
{
    if (std::exchange(m_willBind, true))
        return;
    m_queue->post(m_lifetime.guarded([this] {
        m_willBind = false;
        bind();
    }));
}

void SessionShortcuts::bind()
{
    if (m_registered.empty())
        return;
    if (m_settings->boolean(declinedKey())) {
        show({ State::declined, {}, tr("You have declined the shortcut.") });
        return;
    }
    m_kde.release();
    m_portal.bind(shortcuts());
}

QList<Shortcut> SessionShortcuts::shortcuts() const
{
    QList<Shortcut> shortcuts;
    for (const auto& [number, each] : m_registered)
        shortcuts.append(each.shortcut);
    return shortcuts;
}

QString SessionShortcuts::wantedKeys() const
{
    if (m_registered.empty())
        return {};
    const QKeyCombination keys = m_registered.begin()->second.shortcut.keys;
    return keyNames(keys.keyboardModifiers(), QKeySequence(keys.key()).toString(QKeySequence::NativeText));
}

bool SessionShortcuts::canAskAgain() const
{
    // KDE's service asks nobody: the user gives keys in the desktop's settings.
    return m_shown.state == State::declined
        || (m_shown.state == State::unbound && m_portal.status().state == State::unbound);
}

void SessionShortcuts::askAgain()
{
    setDeclined(false);
    bind();
}

void SessionShortcuts::setDeclined(bool isDeclined)
{
    if (m_settings->boolean(declinedKey()) != isDeclined)
        m_settings->set(isDeclined, declinedKey());
}

void SessionShortcuts::portalChanged()
{
    switch (m_portal.status().state) {
    case State::asking:
    case State::unbound:
        break;
    case State::bound:
        m_kde.release();
        setDeclined(false);
        break;
    case State::declined:
        m_kde.release();
        setDeclined(true);
        break;
    case State::absent:
        m_kde.bind(shortcuts());
        return;
    }
    show(m_portal.status());
}

void SessionShortcuts::kdeChanged()
{
    switch (m_kde.status().state) {
    case State::bound:
        // The portal may still come, and each press would count twice.
        m_portal.release();
        show(m_kde.status());
        break;
    case State::absent:
        showAbsence();
        break;
    default:
        show(m_kde.status());
        break;
    }
}

void SessionShortcuts::showAbsence()
{
    if (!std::exchange(m_hasNamedCommand, true))
        logLine(QStringLiteral("the desktop gives this program no keyboard shortcut; keys can be bound to: %1")
                    .arg(command()));
    const QString reason = m_portal.status().obstacle;
    const QString advice = tr("In the desktop's settings, keys can be bound to this command: %1").arg(command());
    show({ State::absent, {}, reason.isEmpty() ? advice : QString(reason + QLatin1Char(' ') + advice) });
}

void SessionShortcuts::show(const ShortcutStatus& status)
{
    if (std::exchange(m_shown, status) != status)
        Q_EMIT changed();
}

void SessionShortcuts::press(const QString& id) const
{
    const auto meant = std::find_if(m_registered.begin(), m_registered.end(),
                                    [&](const auto& each) { return each.second.shortcut.id == id; });
    if (meant == m_registered.end())
        return;
    // The call may unregister the shortcut.
    const auto pressed = meant->second.pressed;
    (*pressed)();
}

} // namespace nookle
