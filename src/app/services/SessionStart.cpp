#include "SessionStart.h"

#include <QByteArray>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>
#include <QStringList>

#include <algorithm>
#include <array>
#include <optional>

namespace nookle {

namespace {

inline constexpr int questionTimeoutMilliseconds = 2000;
inline constexpr int startTimeoutMilliseconds = 30'000;

/// What decides which display the program is on, where its files are, and what it looks like.
inline constexpr std::array decisiveVariables{ "DISPLAY",
                                               "WAYLAND_DISPLAY",
                                               "XAUTHORITY",
                                               "XDG_CURRENT_DESKTOP",
                                               "SWAYSOCK",
                                               "XDG_CONFIG_HOME",
                                               "XDG_DATA_HOME",
                                               "LANG",
                                               "LANGUAGE",
                                               "LC_ALL",
                                               "LC_MESSAGES",
                                               "QT_SCALE_FACTOR",
                                               "QT_QPA_PLATFORMTHEME",
                                               "QT_STYLE_OVERRIDE",
                                               "NOOKLE_BACKEND" };

/// The variables of the programs that the manager starts, as `NAME=value`; none without a manager.
[[nodiscard]] std::optional<QStringList> managerEnvironment(const QDBusConnection& bus)
{
    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.systemd1"), QStringLiteral("/org/freedesktop/systemd1"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << QStringLiteral("org.freedesktop.systemd1.Manager") << QStringLiteral("Environment");
    question.setAutoStartService(false);
    const QDBusReply<QDBusVariant> answer = bus.call(question, QDBus::Block, questionTimeoutMilliseconds);
    return answer.isValid() ? std::optional(answer.value().variant().toStringList()) : std::nullopt;
}

[[nodiscard]] bool isOwnSession(const QStringList& environment)
{
    return std::all_of(decisiveVariables.begin(), decisiveVariables.end(), [&environment](const char* variable) {
        const QString start = QString::fromLatin1(variable) + QLatin1Char('=');
        const auto line = std::find_if(environment.begin(), environment.end(),
                                       [&start](const QString& each) { return each.startsWith(start); });
        const QString value = line == environment.end() ? QString() : line->mid(start.size());
        return value == qEnvironmentVariable(variable);
    });
}

} // namespace

bool startBySession(const QDBusConnection& bus)
{
    const auto environment = managerEnvironment(bus);
    if (!environment || !isOwnSession(*environment))
        return false;
    QDBusMessage start =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
                                       QStringLiteral("org.freedesktop.DBus"), QStringLiteral("StartServiceByName"));
    constexpr uint noFlags = 0;
    start << QStringLiteral("org.nookle.Nookle") << noFlags;
    return bus.call(start, QDBus::Block, startTimeoutMilliseconds).type() == QDBusMessage::ReplyMessage;
}

} // namespace nookle
