#include "DesktopAppearance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QGuiApplication>

namespace nookle {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const QString colorSchemeKey = QStringLiteral("color-scheme");
constexpr uint prefersDark = 1;

[[nodiscard]] bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

/// A dark palette with the accent colour of `palette`.
[[nodiscard]] QPalette darkened(const QPalette& palette)
{
    const QColor window(0x2b, 0x2b, 0x2e);
    const QColor text(0xf2, 0xf2, 0xf4);
    const QColor faint(0x8c, 0x8c, 0x90);
    QPalette dark(window.lighter(), window);
    for (const auto role : { QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText,
                             QPalette::BrightText, QPalette::HighlightedText })
        dark.setColor(role, text);
    for (const auto role : { QPalette::WindowText, QPalette::Text, QPalette::ButtonText })
        dark.setColor(QPalette::Disabled, role, faint);
    dark.setColor(QPalette::PlaceholderText, faint);
    dark.setColor(QPalette::Base, QColor(0x1c, 0x1c, 0x1e));
    dark.setColor(QPalette::ToolTipBase, QColor(0x3a, 0x3a, 0x3d));
    dark.setColor(QPalette::Button, QColor(0x3a, 0x3a, 0x3d));
    dark.setColor(QPalette::Highlight, palette.color(QPalette::Highlight));
    return dark;
}

/// Older services wrap the value twice.
[[nodiscard]] QVariant unwrapped(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

} // namespace

DesktopAppearance::DesktopAppearance()
    : m_own(QGuiApplication::palette())
{
    if (!isDark(m_own))
        follow();
}

void DesktopAppearance::follow()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.connect(service, path, settingsInterface, QStringLiteral("SettingChanged"), this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    // At login this program may start before the service.
    auto* starts = new QDBusServiceWatcher(service, bus, QDBusServiceWatcher::WatchForRegistration, this);
    connect(starts, &QDBusServiceWatcher::serviceRegistered, this, &DesktopAppearance::askForPreference);
    askForPreference();
}

void DesktopAppearance::askForPreference()
{
    QDBusMessage read = QDBusMessage::createMethodCall(service, path, settingsInterface, QStringLiteral("Read"));
    read << appearanceGroup << colorSchemeKey;
    read.setAutoStartService(false);
    auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(read), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, &DesktopAppearance::readAnswer);
}

void DesktopAppearance::readAnswer(QDBusPendingCallWatcher* watcher)
{
    watcher->deleteLater();
    const QDBusPendingReply<QDBusVariant> reply = *watcher;
    if (!reply.isError())
        setPreference(unwrapped(reply.value().variant()));
}

void DesktopAppearance::settingChanged(const QString& group, const QString& key, const QDBusVariant& value)
{
    if (group == appearanceGroup && key == colorSchemeKey)
        setPreference(unwrapped(value.variant()));
}

void DesktopAppearance::setPreference(const QVariant& value)
{
    QGuiApplication::setPalette(value.toUInt() == prefersDark ? darkened(m_own) : m_own);
}

} // namespace nookle
