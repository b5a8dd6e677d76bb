#include "GnomeShell.h"

#include "GnomeHand.h"
#include "Waiting.h"

#include <QDBusReply>
#include <QDBusVariant>
#include <QDir>
#include <QRegularExpression>

#include <csignal>

namespace nookle::e2e {

namespace {

const QString connectionName = QStringLiteral("gnome");

// Without them a corner opens the overview, and messages (a session of root has two) lie over the windows. What is
// behind the windows is of one colour, which a picture is compared with.
constexpr auto* settings = "[org/gnome/desktop/interface]\nenable-hot-corners=false\nenable-animations=false\n"
                           "[org/gnome/desktop/notifications]\nshow-banners=false\n"
                           "[org/gnome/desktop/background]\npicture-options='none'\nprimary-color='#305070'\n"
                           "[org/gnome/shell]\nwelcome-dialog-last-shown-version='1000'\n"
                           "[org/gnome/nautilus/window-state]\nmaximized=true\n"
                           "[org/gnome/nautilus/preferences]\nopen-folder-on-dnd-hover=false\n";

[[nodiscard]] QDBusMessage propertyCall(const QString& method)
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(QStringLiteral("org.gnome.Shell"), QStringLiteral("/org/gnome/Shell"),
                                       QStringLiteral("org.freedesktop.DBus.Properties"), method);
    message << QStringLiteral("org.gnome.Shell") << QStringLiteral("OverviewActive");
    return message;
}

} // namespace

GnomeShell::GnomeShell(PrivateSession& session, const QDBusConnection& bus)
    : m_session(session)
    , m_bus(bus)
{
}

GnomeShell::~GnomeShell()
{
    m_program.reset();
    m_systemBus.reset();
    m_bus = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(connectionName);
}

std::unique_ptr<GnomeShell> GnomeShell::tryStart(PrivateSession& session, const QSize& displaySize, int displays)
{
    const QString address = session.environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    std::unique_ptr<GnomeShell> shell(new GnomeShell(session, QDBusConnection::connectToBus(address, connectionName)));
    if (!shell->startSystemBus())
        return nullptr;
    shell->start(displaySize, displays);
    if (!waitFor([&] { return shell->hasStarted() || !shell->m_program->isRunning(); }) || !shell->leaveOverview()
        || !shell->tellSession()) {
        qWarning("no GNOME Shell: %s", shell->m_program->log().constData());
        return nullptr;
    }
    return shell;
}

// The shell asks services of the machine for much, and does not start without a bus to hear that they are not there.
bool GnomeShell::startSystemBus()
{
    const QString address = QStringLiteral("unix:path=") + m_session.home(QStringLiteral("runtime/system-bus"));
    m_session.writeFile(QStringLiteral("system-bus.conf"),
                        "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\" "
                        "\"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
                        "<busconfig><type>system</type><listen>"
                            + address.toUtf8()
                            + "</listen><policy context=\"default\"><allow send_destination=\"*\"/>"
                              "<allow receive_sender=\"*\"/><allow own=\"*\"/></policy></busconfig>\n");
    m_systemBus = m_session.start(QStringLiteral("dbus-daemon"),
                                  { QStringLiteral("--config-file"), m_session.home(QStringLiteral("system-bus.conf")),
                                    QStringLiteral("--nofork"), QStringLiteral("--print-address=1") });
    m_session.setVariable(QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"), address);
    const bool isListening = !m_systemBus->readLine().isEmpty();
    if (!isListening)
        qWarning("no system bus: %s", m_systemBus->log().constData());
    return isListening;
}

void GnomeShell::start(const QSize& displaySize, int displays)
{
    m_session.writeFile(QStringLiteral("config/glib-2.0/settings/keyfile"), settings);
    m_session.setVariable(QStringLiteral("GSETTINGS_BACKEND"), QStringLiteral("keyfile"));
    m_session.setVariable(QStringLiteral("GSETTINGS_SCHEMA_DIR"), qEnvironmentVariable("NOOKLE_GNOME_SCHEMAS"));
    m_session.setVariable(QStringLiteral("XDG_CURRENT_DESKTOP"), QStringLiteral("GNOME"));
    QStringList arguments{ QStringLiteral("--headless"), QStringLiteral("--wayland") };
    for (int display = 0; display < displays; ++display)
        arguments << QStringLiteral("--virtual-monitor")
                  << QStringLiteral("%1x%2").arg(displaySize.width()).arg(displaySize.height());
    m_program = m_session.start(QStringLiteral("gnome-shell"), arguments);
}

bool GnomeShell::hasStarted() const
{
    return m_program->log().contains("GNOME Shell started at");
}

bool GnomeShell::leaveOverview()
{
    QDBusMessage leave = propertyCall(QStringLiteral("Set"));
    leave << QVariant::fromValue(QDBusVariant(false));
    m_bus.call(leave);
    return waitFor([this] {
        const QDBusReply<QDBusVariant> isActive = m_bus.call(propertyCall(QStringLiteral("Get")));
        return isActive.isValid() && !isActive.value().variant().toBool();
    });
}

bool GnomeShell::tellSession()
{
    const auto xDisplay =
        QRegularExpression(QStringLiteral("public X11 display (:\\d+)")).match(QString::fromUtf8(m_program->log()));
    const auto waylandDisplay =
        QRegularExpression(QStringLiteral("Wayland display name '([^']+)'")).match(QString::fromUtf8(m_program->log()));
    const QDir runtime(m_session.home(QStringLiteral("runtime")));
    const QString key =
        runtime.entryList({ QStringLiteral(".mutter-Xwaylandauth.*") }, QDir::Files | QDir::Hidden).value(0);
    m_session.setVariable(QStringLiteral("DISPLAY"), xDisplay.captured(1));
    m_session.setVariable(QStringLiteral("XAUTHORITY"), runtime.filePath(key));
    m_session.setVariable(QStringLiteral("WAYLAND_DISPLAY"), waylandDisplay.captured(1));
    return xDisplay.hasMatch() && waylandDisplay.hasMatch()
        && !key.isEmpty()
        // It gives pictures to the desktop's own programs alone, which it knows by their names.
        && m_bus.registerService(QStringLiteral("org.gnome.Screenshot"));
}

void GnomeShell::setStalled(bool isStalled)
{
    ::kill(static_cast<pid_t>(m_program->processId()), isStalled ? SIGSTOP : SIGCONT);
}

std::unique_ptr<Hand> GnomeShell::takeHand() const
{
    return GnomeHand::tryTake(m_bus);
}

QImage GnomeShell::picture(const QRect& area) const
{
    const QString file = m_session.home(QStringLiteral("picture.png"));
    QDBusMessage take = QDBusMessage::createMethodCall(
        QStringLiteral("org.gnome.Shell.Screenshot"), QStringLiteral("/org/gnome/Shell/Screenshot"),
        QStringLiteral("org.gnome.Shell.Screenshot"), QStringLiteral("ScreenshotArea"));
    take << area.x() << area.y() << area.width() << area.height() << false << file;
    const QDBusMessage reply = m_bus.call(take);
    return reply.arguments().value(0).toBool() ? QImage(file, "PNG") : QImage();
}

} // namespace nookle::e2e
