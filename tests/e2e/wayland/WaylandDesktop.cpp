#include "WaylandDesktop.h"

#include "Waiting.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <filesystem>

namespace nookle::e2e {

namespace {

[[nodiscard]] QString desktopName(WaylandDesktop::Compositor compositor)
{
    switch (compositor) {
    case WaylandDesktop::Compositor::sway:
        return QStringLiteral("sway");
    case WaylandDesktop::Compositor::labwc:
    case WaylandDesktop::Compositor::labwcWithX11:
        return QStringLiteral("labwc:wlroots");
    case WaylandDesktop::Compositor::kwin:
    case WaylandDesktop::Compositor::kwinWithX11:
    case WaylandDesktop::Compositor::kwinInWindow:
    case WaylandDesktop::Compositor::kwinInWindowWithX11:
        return QStringLiteral("KDE");
    case WaylandDesktop::Compositor::gnome:
        return QStringLiteral("GNOME");
    }
    return {};
}

/// Makes the folder of the X servers' sockets, which stays, as a machine does at its start. A compositor may have made
/// it with fewer permissions than others want to see.
void makeSocketFolder()
{
    const std::filesystem::path folder("/tmp/.X11-unix");
    std::error_code ignored;
    std::filesystem::create_directory(folder, ignored);
    std::filesystem::permissions(folder, std::filesystem::perms::all | std::filesystem::perms::sticky_bit, ignored);
}

} // namespace

WaylandDesktop::~WaylandDesktop()
{
    m_hand.reset();
    m_gnome.reset();
    m_x11Program.reset();
    m_compositor.reset();
    m_screen.reset();
    m_server.reset();
    stopBus();
}

std::unique_ptr<WaylandDesktop> WaylandDesktop::tryCreate(const Options& options)
{
    std::unique_ptr<WaylandDesktop> desktop(new WaylandDesktop);
    if (!desktop->hasHome() || !desktop->startBus() || !desktop->startCompositor(options))
        return nullptr;
    return desktop;
}

bool WaylandDesktop::startCompositor(const Options& options)
{
    if (options.compositor == Compositor::gnome)
        return startGnome(options.displays);
    m_hasPictures = options.compositor != Compositor::kwin && options.compositor != Compositor::kwinWithX11;
    switch (options.compositor) {
    case Compositor::sway:
        m_compositor = startSway(options.displays);
        break;
    case Compositor::labwc:
    case Compositor::labwcWithX11:
        m_compositor = startLabwc(options);
        break;
    case Compositor::kwin:
    case Compositor::kwinWithX11:
    case Compositor::kwinInWindow:
    case Compositor::kwinInWindowWithX11:
        m_compositor = startKWin(options);
        break;
    case Compositor::gnome:
        break;
    }
    QString socket;
    const bool isReady = waitFor([&] {
        const QStringList sockets = QDir(home(QStringLiteral("runtime")))
                                        .entryList({ QStringLiteral("wayland-?") }, QDir::System | QDir::Files);
        socket = sockets.value(0);
        if (!socket.isEmpty())
            m_hand = Hand::tryTake(QFile::encodeName(home(QStringLiteral("runtime/") + socket)),
                                   QPoint(displaySize.width() * options.displays, displaySize.height()));
        return m_hand != nullptr || !m_compositor->isRunning();
    });
    if (!isReady || !m_hand) {
        qWarning("no compositor: %s", m_compositor->log().constData());
        return false;
    }
    setVariable(QStringLiteral("WAYLAND_DISPLAY"), socket);
    // Not for the compositor itself: it may take itself for a part of that desktop's session.
    setVariable(QStringLiteral("XDG_CURRENT_DESKTOP"), desktopName(options.compositor));
    if (!hasBridge(options.compositor))
        return true;
    if (!findBridge())
        return false;
    if (options.compositor != Compositor::labwcWithX11)
        return !options.isBridgeRunning || startBridge();
    // Without a program its X server ends.
    startX11Program();
    return true;
}

void WaylandDesktop::useWlrootsWithoutScreen(int displays)
{
    setVariable(QStringLiteral("WLR_BACKENDS"), QStringLiteral("headless"));
    setVariable(QStringLiteral("WLR_RENDERER"), QStringLiteral("pixman"));
    setVariable(QStringLiteral("WLR_LIBINPUT_NO_DEVICES"), QStringLiteral("1"));
    setVariable(QStringLiteral("WLR_HEADLESS_OUTPUTS"), QString::number(displays));
}

std::unique_ptr<Program> WaylandDesktop::startSway(int displays)
{
    QByteArray configuration("default_border none\nfocus_follows_mouse no\nxwayland disable\n"
                             "for_window [app_id=\".*\"] move container to output HEADLESS-1\n"
                             "for_window [title=\"^(moving|floor)$\"] floating enable\n");
    for (int display = 0; display < displays; ++display)
        configuration += "output HEADLESS-" + QByteArray::number(display + 1) + " position "
            + QByteArray::number(display * displaySize.width()) + " 0\n";
    writeFile(QStringLiteral("sway.conf"), configuration);
    useWlrootsWithoutScreen(displays);
    return start(QStringLiteral("sway"), { QStringLiteral("-c"), home(QStringLiteral("sway.conf")) });
}

std::unique_ptr<Program> WaylandDesktop::startLabwc(const Options& options)
{
    QDir().mkpath(home(QStringLiteral("labwc")));
    useWlrootsWithoutScreen(options.displays);
    QStringList arguments{ QStringLiteral("-C"), home(QStringLiteral("labwc")) };
    if (options.compositor == Compositor::labwcWithX11) {
        makeSocketFolder();
        arguments << QStringLiteral("-s") << writeBridgeTeller();
    }
    return start(QStringLiteral("labwc"), arguments);
}

QString WaylandDesktop::writeBridgeTeller() const
{
    writeFile(QStringLiteral("tell"), "#!/bin/sh\necho $DISPLAY $XAUTHORITY >$HOME/bridge\n");
    const QString path = home(QStringLiteral("tell"));
    QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner);
    return path;
}

void WaylandDesktop::startX11Program()
{
    m_x11Program = std::make_unique<XScreen>(environment().value(QStringLiteral("DISPLAY")).toLocal8Bit());
}

bool WaylandDesktop::isX11ServerRunning() const
{
    const QByteArray ours = "XDG_RUNTIME_DIR=" + QFile::encodeName(home(QStringLiteral("runtime")));
    const QStringList processes = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return std::any_of(processes.begin(), processes.end(), [&](const QString& process) {
        QFile name(QStringLiteral("/proc/%1/comm").arg(process));
        QFile variables(QStringLiteral("/proc/%1/environ").arg(process));
        return name.open(QIODevice::ReadOnly) && name.readAll().trimmed() == "Xwayland"
            && variables.open(QIODevice::ReadOnly) && variables.readAll().split('\0').contains(ours);
    });
}

bool WaylandDesktop::findBridge()
{
    QByteArray line;
    const bool isThere = waitFor([&] {
        QFile file(home(QStringLiteral("bridge")));
        line = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        return line.endsWith('\n');
    });
    const QList<QByteArray> words = line.trimmed().split(' ');
    setVariable(QStringLiteral("DISPLAY"), QFile::decodeName(words.value(0)));
    setVariable(QStringLiteral("XAUTHORITY"), QFile::decodeName(words.value(1)));
    if (!isThere)
        qWarning("no X server is named: %s", m_compositor->log().constData());
    return isThere;
}

// The first program that asks for the X server starts it.
bool WaylandDesktop::startBridge()
{
    const auto program = start(QStringLiteral("xrandr"));
    const bool isRunning = program->waitForExit() == 0;
    if (!isRunning)
        qWarning("no X server: %s", program->log().constData());
    return isRunning;
}

QString WaylandDesktop::startScreen()
{
    const QString size = QStringLiteral("%1x%2x24").arg(displaySize.width()).arg(displaySize.height());
    m_server = start(QStringLiteral("Xvfb"),
                     { QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                       QStringLiteral("0"), size, QStringLiteral("-nolisten"), QStringLiteral("tcp") });
    const QByteArray number = m_server->readLine();
    if (number.isEmpty()) {
        qWarning("no X server: %s", m_server->log().constData());
        return {};
    }
    m_screen = std::make_unique<XScreen>(":" + number);
    return QLatin1Char(':') + QString::fromLatin1(number);
}

bool WaylandDesktop::hasBridge(Compositor compositor)
{
    return compositor == Compositor::kwinWithX11 || compositor == Compositor::kwinInWindowWithX11
        || compositor == Compositor::labwcWithX11;
}

std::unique_ptr<Program> WaylandDesktop::startKWin(const Options& options)
{
    QProcessEnvironment trusting = environment();
    trusting.insert(QStringLiteral("KWIN_WAYLAND_NO_PERMISSION_CHECKS"), QStringLiteral("1"));
    QStringList arguments{ QStringLiteral("--width"),         QString::number(displaySize.width()),
                           QStringLiteral("--height"),        QString::number(displaySize.height()),
                           QStringLiteral("--output-count"),  QString::number(options.displays),
                           QStringLiteral("--no-lockscreen"), QStringLiteral("--socket"),
                           QStringLiteral("wayland-0") };
    if (options.compositor == Compositor::kwinInWindow || options.compositor == Compositor::kwinInWindowWithX11) {
        makeSocketFolder();
        // The processor draws: there is nothing else.
        trusting.insert(QStringLiteral("KWIN_COMPOSE"), QStringLiteral("Q"));
        arguments << QStringLiteral("--x11-display") << startScreen();
    } else {
        arguments << QStringLiteral("--virtual");
    }
    if (hasBridge(options.compositor)) {
        makeSocketFolder();
        // A program of its session is told where the X server is.
        arguments << QStringLiteral("--xwayland") << writeBridgeTeller();
    }
    return std::make_unique<Program>(QStringLiteral("kwin_wayland"), arguments, trusting);
}

bool WaylandDesktop::startGnome(int displays)
{
    makeSocketFolder();
    m_gnome = GnomeShell::tryStart(*this, displaySize, displays);
    if (!m_gnome)
        return false;
    m_hand = m_gnome->takeHand();
    return m_hand != nullptr;
}

QImage WaylandDesktop::picture(const QRect& area) const
{
    if (m_gnome)
        return m_gnome->picture(area);
    if (m_screen)
        return m_screen->picture(area);
    const QString file = home(QStringLiteral("picture.ppm"));
    const QString geometry =
        QStringLiteral("%1,%2 %3x%4").arg(area.x()).arg(area.y()).arg(area.width()).arg(area.height());
    const QStringList arguments{ QStringLiteral("-t"), QStringLiteral("ppm"), QStringLiteral("-g"), geometry, file };
    if (start(QStringLiteral("grim"), arguments)->waitForExit() != 0)
        return {};
    return QImage(file, "PPM");
}

bool WaylandDesktop::unplugRightDisplay()
{
    const QDir folder(home(QStringLiteral("runtime")));
    const QString socket = folder.entryList({ QStringLiteral("sway-ipc.*.sock") }, QDir::System).value(0);
    const auto command = start(QStringLiteral("swaymsg"),
                               { QStringLiteral("-s"), folder.filePath(socket), QStringLiteral("output"),
                                 QStringLiteral("HEADLESS-2"), QStringLiteral("unplug") });
    if (command->waitForExit() != 0)
        return false;
    m_hand->setDesktop(QPoint(displaySize.width(), displaySize.height()));
    return true;
}

void WaylandDesktop::killCompositor()
{
    if (m_gnome)
        m_gnome->kill();
    else
        m_compositor->kill();
}

} // namespace nookle::e2e
