#include "DesktopAppearance.h"

#include "DesktopPalette.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QFont>
#include <QGuiApplication>
#include <QIcon>

#include <utility>

namespace nookle {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString gnome = QStringLiteral("org.gnome.desktop.interface");

/// Plasma sets the colours of all toolkits by itself. The theme that it names is for one toolkit, and has any colours.
[[nodiscard]] bool isPlasma()
{
    return qgetenv("XDG_CURRENT_DESKTOP").split(':').contains("KDE");
}

/// The groups of the portal's settings that say something about this desktop.
[[nodiscard]] QStringList groups()
{
    QStringList groups{ QStringLiteral("org.freedesktop.appearance"), gnome };
    if (isPlasma())
        groups << QStringLiteral("org.kde.kdeglobals.Icons") << QStringLiteral("org.kde.kdeglobals.General");
    return groups;
}

/// Without what GNOME's group says of things that Plasma has settings of its own for: nobody there may keep it right.
[[nodiscard]] PortalSettings settingsOfPlasma(PortalSettings settings)
{
    QVariantMap& values = settings[gnome];
    for (const char* key : { "gtk-theme", "icon-theme", "font-name" })
        values.remove(QLatin1String(key));
    return settings;
}

/// Older services wrap the value twice.
[[nodiscard]] QVariant unwrapped(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

/// Whether texts are fainter in windows that are not active, of which the panel is one. The toolkit's own theme for GTK
/// has it so also where no settings are found. Another theme is left alone there, because what has once been set no
/// longer follows it.
[[nodiscard]] bool hasFaintTexts(const QPalette& palette)
{
    return palette.color(QPalette::Inactive, QPalette::WindowText)
        != palette.color(QPalette::Active, QPalette::WindowText);
}

} // namespace

DesktopAppearance::DesktopAppearance(ToolkitSettings* toolkit, ReadPalette readPalette)
    : m_toolkit(toolkit)
    , m_readPalette(std::move(readPalette))
    , m_own(QGuiApplication::palette())
{
    if (m_toolkit)
        m_toolkit->onChanged = [this] { update(); };
    if (hasFaintTexts(m_own))
        apply(m_look);
    update();
    followPortal();
    QCoreApplication::instance()->installEventFilter(this);
}

// The toolkit tells all windows, and not the application: colours that were set here hide its own.
bool DesktopAppearance::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ThemeChange && !std::exchange(m_isOwnOutdated, true))
        QMetaObject::invokeMethod(this, &DesktopAppearance::readOwnPalette, Qt::QueuedConnection);
    return QObject::eventFilter(watched, event);
}

QPalette DesktopAppearance::toolkitPalette()
{
    QGuiApplication::setPalette(QPalette());
    return QGuiApplication::palette();
}

void DesktopAppearance::readOwnPalette()
{
    m_isOwnOutdated = false;
    m_own = m_readPalette();
    if (m_look != DesktopLook() || hasFaintTexts(m_own))
        applyPalette();
}

void DesktopAppearance::followPortal()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.connect(service, path, settingsInterface, QStringLiteral("SettingChanged"), this,
                SLOT(settingChanged(QDBusMessage)));
    // At login this program may start before the service.
    auto* starts = new QDBusServiceWatcher(service, bus, QDBusServiceWatcher::WatchForRegistration, this);
    connect(starts, &QDBusServiceWatcher::serviceRegistered, this, &DesktopAppearance::askPortal);
    askPortal();
}

void DesktopAppearance::askPortal()
{
    QDBusMessage read = QDBusMessage::createMethodCall(service, path, settingsInterface, QStringLiteral("ReadAll"));
    read << groups();
    read.setAutoStartService(false);
    auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(read), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, &DesktopAppearance::readAnswer);
}

void DesktopAppearance::readAnswer(QDBusPendingCallWatcher* watcher)
{
    watcher->deleteLater();
    const QDBusMessage reply = watcher->reply();
    if (reply.type() != QDBusMessage::ReplyMessage || reply.signature() != QLatin1String("a{sa{sv}}"))
        return;
    m_portal = qdbus_cast<PortalSettings>(reply.arguments().constFirst());
    update();
}

void DesktopAppearance::settingChanged(const QDBusMessage& message)
{
    if (message.signature() != QLatin1String("ssv"))
        return;
    const QVariantList arguments = message.arguments();
    const QString group = arguments.at(0).toString();
    if (!groups().contains(group))
        return;
    m_portal[group].insert(arguments.at(1).toString(), unwrapped(arguments.at(2)));
    update();
}

void DesktopAppearance::update()
{
    ToolkitSettings::Values toolkit = m_toolkit ? m_toolkit->values() : ToolkitSettings::Values();
    if (isPlasma())
        toolkit.remove("Net/ThemeName");
    const DesktopLook look = desktopLook(isPlasma() ? settingsOfPlasma(m_portal) : m_portal, toolkit);
    const DesktopLook previous = std::exchange(m_look, look);
    if (look == previous)
        return;
    apply(previous);
    if (onChanged)
        onChanged();
}

void DesktopAppearance::apply(const DesktopLook& previous)
{
    if (m_look.iconTheme && m_look.iconTheme != previous.iconTheme)
        QIcon::setThemeName(*m_look.iconTheme);
    if (m_look.font && m_look.font != previous.font)
        QGuiApplication::setFont(*m_look.font);
    applyPalette();
}

void DesktopAppearance::applyPalette()
{
    QGuiApplication::setPalette(desktopPalette(m_own, m_look));
}

} // namespace nookle
