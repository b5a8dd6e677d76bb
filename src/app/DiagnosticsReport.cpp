#include "DiagnosticsReport.h"

#include "PlainText.h"
#include "ProgramVersion.h"
#include "Sandbox.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QGuiApplication>
#include <QIcon>
#include <QLocale>
#include <QScreen>
#include <QStringList>
#include <QSysInfo>

namespace nookle {

namespace {

/// In milliseconds, for each of two questions. The user waits for the answers.
inline constexpr int patienceForBus = 500;

[[nodiscard]] QString line(const QString& title, const QString& value)
{
    return title + QStringLiteral(": ") + shownText(value);
}

[[nodiscard]] QString session()
{
    const QString type = qEnvironmentVariable("XDG_SESSION_TYPE", QStringLiteral("of no known type"));
    return type + QStringLiteral(", ")
        + qEnvironmentVariable("XDG_CURRENT_DESKTOP", QStringLiteral("no desktop named"));
}

[[nodiscard]] QString backend()
{
    const QString platform = QGuiApplication::platformName();
    const bool isBridged = platform == QLatin1String("xcb") && !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    return isBridged ? QString(platform + QStringLiteral(" through XWayland")) : platform;
}

[[nodiscard]] QString displays()
{
    QStringList found;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect area = screen->geometry();
        found.append(QStringLiteral("%1x%2%3%4%5%6 at scale %7")
                         .arg(area.width())
                         .arg(area.height())
                         .arg(area.x() < 0 ? QString() : QStringLiteral("+"))
                         .arg(area.x())
                         .arg(area.y() < 0 ? QString() : QStringLiteral("+"))
                         .arg(area.y())
                         .arg(screen->devicePixelRatio()));
    }
    return found.join(QStringLiteral(", "));
}

/// The names that the bus answers `method` with.
[[nodiscard]] QStringList busNames(const QString& method)
{
    const QDBusMessage call =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
                                       QStringLiteral("org.freedesktop.DBus"), method);
    return QDBusConnection::sessionBus().call(call, QDBus::Block, patienceForBus).arguments().value(0).toStringList();
}

/// A line for each service that the program makes use of.
[[nodiscard]] QStringList services()
{
    const QStringList running = busNames(QStringLiteral("ListNames"));
    const QStringList startable = busNames(QStringLiteral("ListActivatableNames"));
    QStringList lines;
    for (const char* each : { "org.freedesktop.portal.Desktop", "org.freedesktop.portal.Documents",
                              "org.freedesktop.FileManager1", "org.freedesktop.Notifications",
                              "org.freedesktop.thumbnails.Thumbnailer1", "org.kde.StatusNotifierWatcher" }) {
        const QString name = QString::fromLatin1(each);
        const QString idle = startable.contains(name) ? QStringLiteral("can be started") : QStringLiteral("missing");
        lines.append(line(name, running.contains(name) ? QStringLiteral("running") : idle));
    }
    return lines;
}

} // namespace

QString diagnosticsReport()
{
    const bool hasSandbox = !sandboxProgram().isEmpty();
    const bool hasBus = QDBusConnection::sessionBus().isConnected();
    QStringList lines{
        line(QStringLiteral("Nookle"), programVersion()),
        line(QStringLiteral("Qt"), QString::fromLatin1(qVersion())),
        line(QStringLiteral("System"), QSysInfo::prettyProductName()),
        line(QStringLiteral("Kernel"), QSysInfo::kernelVersion()),
        line(QStringLiteral("Processor"), QSysInfo::currentCpuArchitecture()),
        line(QStringLiteral("Session"), session()),
        line(QStringLiteral("Backend"), backend()),
        line(QStringLiteral("Displays"), displays()),
        line(QStringLiteral("Icon theme"), QIcon::themeName()),
        line(QStringLiteral("Language"), QLocale::system().name()),
        line(QStringLiteral("Sandbox"), hasSandbox ? QStringLiteral("bubblewrap") : QStringLiteral("missing")),
        line(QStringLiteral("Session bus"), hasBus ? QStringLiteral("running") : QStringLiteral("missing")),
    };
    return (lines + services()).join(QLatin1Char('\n')) + QLatin1Char('\n');
}

} // namespace nookle
