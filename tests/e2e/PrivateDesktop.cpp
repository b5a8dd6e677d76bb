#include "PrivateDesktop.h"

#include "Waiting.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <utility>

namespace nookle::e2e {

namespace {

// What a window manager writes on the root window: that it is there, and then the windows that it manages.
constexpr auto* windowManagerMark = "_NET_SUPPORTING_WM_CHECK";
constexpr auto* windowList = "_NET_CLIENT_LIST";

} // namespace

PrivateDesktop::PrivateDesktop()
    : m_environment(QProcessEnvironment::systemEnvironment())
{
    setUpHome();
}

// Files whose names are not UTF-8 are beyond the temporary folder's own removal, and services that the bus has started
// write for a moment longer than the bus lives.
PrivateDesktop::~PrivateDesktop()
{
    m_windowManager.reset();
    m_bus.reset();
    m_screen.reset();
    m_server.reset();
    std::error_code ignored;
    std::filesystem::remove_all(home(QStringLiteral("files")).toStdString(), ignored);
    if (!waitFor([this] { return m_home.remove(); }))
        qWarning("%s is left behind", qPrintable(m_home.path()));
}

std::unique_ptr<PrivateDesktop> PrivateDesktop::tryCreate(const Options& options)
{
    std::unique_ptr<PrivateDesktop> desktop(new PrivateDesktop);
    if (!desktop->m_home.isValid() || !desktop->startServer(options.size) || !desktop->startBus())
        return nullptr;
    if (options.hasTwoDisplays && !desktop->splitDisplay(options.size))
        return nullptr;
    if (!options.windowManager.isEmpty() && !desktop->startWindowManager(options.windowManager))
        return nullptr;
    return desktop;
}

void PrivateDesktop::setUpHome()
{
    const QStringList folders{ QStringLiteral("data"), QStringLiteral("config"), QStringLiteral("cache"),
                               QStringLiteral("runtime"), QStringLiteral("files") };
    for (const QString& folder : folders)
        QDir().mkpath(home(folder));
    QFile::setPermissions(home(QStringLiteral("runtime")), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    m_environment.insert(QStringLiteral("HOME"), m_home.path());
    m_environment.insert(QStringLiteral("XDG_DATA_HOME"), home(QStringLiteral("data")));
    m_environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home(QStringLiteral("config")));
    m_environment.insert(QStringLiteral("XDG_CACHE_HOME"), home(QStringLiteral("cache")));
    m_environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), home(QStringLiteral("runtime")));
    // Its programs are for its own display.
    m_environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
}

bool PrivateDesktop::startServer(const QSize& size)
{
    const QString screen = QStringLiteral("%1x%2x24").arg(size.width()).arg(size.height());
    // The server chooses a free number itself, and tells it once it answers.
    m_server = start(QStringLiteral("Xvfb"),
                     { QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                       QStringLiteral("0"), screen, QStringLiteral("-nolisten"), QStringLiteral("tcp") });
    const QByteArray number = m_server->readLine();
    if (number.isEmpty()) {
        qWarning("no X server: %s", m_server->log().constData());
        return false;
    }
    const QByteArray display = ":" + number;
    m_environment.insert(QStringLiteral("DISPLAY"), QString::fromLatin1(display));
    m_screen = std::make_unique<XScreen>(display);
    return true;
}

// The usual configuration of a session bus lets it start every service of the machine.
QByteArray PrivateDesktop::busConfiguration() const
{
    QByteArray serviceFolders;
    for (const QString& data : m_environment.value(QStringLiteral("XDG_DATA_DIRS")).split(QLatin1Char(':')))
        serviceFolders += QByteArray("<servicedir>" + data.toUtf8() + "/dbus-1/services</servicedir>");
    return "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\" "
           "\"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
           "<busconfig><type>session</type><listen>unix:path="
        + home(QStringLiteral("runtime/bus")).toUtf8() + "</listen>" + serviceFolders
        + "<policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>"
          "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>\n";
}

bool PrivateDesktop::startBus()
{
    writeFile(QStringLiteral("bus.conf"), busConfiguration());
    m_bus = start(QStringLiteral("dbus-daemon"),
                  { QStringLiteral("--config-file"), home(QStringLiteral("bus.conf")), QStringLiteral("--nofork"),
                    QStringLiteral("--print-address=1") });
    const QByteArray address = m_bus->readLine();
    m_environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QString::fromLatin1(address));
    if (address.isEmpty())
        qWarning("no session bus: %s", m_bus->log().constData());
    return !address.isEmpty();
}

bool PrivateDesktop::startWindowManager(const QString& windowManager)
{
    m_windowManagerPath = windowManager;
    m_windowManager = start(windowManager);
    const bool isReady = waitFor([this] { return m_screen->rootHas(windowManagerMark); });
    if (!isReady)
        qWarning("no window manager: %s", m_windowManager->log().constData());
    return isReady;
}

bool PrivateDesktop::windowManagerIsReady(const std::vector<std::uint32_t>& previousMark) const
{
    return waitFor([&] {
        const auto mark = m_screen->rootNumbers(windowManagerMark);
        return !mark.empty() && mark != previousMark && m_screen->rootHas(windowList);
    });
}

bool PrivateDesktop::restartWindowManager()
{
    m_windowManager->kill();
    // What it has left there is no sign of the next one.
    for (const char* property : { windowManagerMark, windowList })
        m_screen->removeFromRoot(property);
    m_windowManager = start(m_windowManagerPath);
    return windowManagerIsReady({});
}

bool PrivateDesktop::replaceWindowManager()
{
    const auto mark = m_screen->rootNumbers(windowManagerMark);
    auto next = start(m_windowManagerPath, { QStringLiteral("--replace") });
    const bool isReplaced = waitFor([&] { return !m_windowManager->isRunning(); }) && windowManagerIsReady(mark);
    m_windowManager = std::move(next);
    return isReplaced;
}

bool PrivateDesktop::removeDisplay() const
{
    const auto isDone = [this](const QStringList& arguments) {
        return start(QStringLiteral("xrandr"), arguments)->waitForExit() == 0;
    };
    const QSize left(m_screen->geometry().width() / 2, m_screen->geometry().height());
    // The server of the tests has a single output that it cannot make smaller, and shrinks the desktop all the same.
    return isDone({ QStringLiteral("--delmonitor"), QStringLiteral("right") })
        && !isDone({ QStringLiteral("--fb"), QStringLiteral("%1x%2").arg(left.width()).arg(left.height()) })
        && waitFor([&] { return m_screen->geometry().size() == left; });
}

bool PrivateDesktop::splitDisplay(const QSize& size)
{
    const auto monitor = [&](const QString& name, int left, const QString& output) {
        const QString geometry =
            QStringLiteral("%1/200x%2/150+%3+0").arg(size.width() / 2).arg(size.height()).arg(left);
        return start(QStringLiteral("xrandr"), { QStringLiteral("--setmonitor"), name, geometry, output })
                   ->waitForExit()
            == 0;
    };
    return monitor(QStringLiteral("left"), 0, QStringLiteral("screen"))
        && monitor(QStringLiteral("right"), size.width() / 2, QStringLiteral("none"));
}

void PrivateDesktop::writeFile(const QString& path, const QByteArray& content) const
{
    QFile file(home(path));
    QDir().mkpath(QFileInfo(file).path());
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qWarning("cannot write %s", qPrintable(file.fileName()));
}

void PrivateDesktop::preload(const QString& library)
{
    setVariable(QStringLiteral("LD_PRELOAD"), library);
    // A library that is loaded before theirs is what the sanitizers object to.
    setVariable(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("verify_asan_link_order=0:detect_leaks=0"));
}

std::unique_ptr<Program> PrivateDesktop::start(const QString& path, const QStringList& arguments) const
{
    return std::make_unique<Program>(path, arguments, m_environment);
}

} // namespace nookle::e2e
