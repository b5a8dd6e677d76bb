#include "WaylandDesktop.h"

#include "Waiting.h"

#include <QDir>
#include <QFile>

namespace nookle::e2e {

namespace {

[[nodiscard]] QString desktopName(WaylandDesktop::Compositor compositor)
{
    switch (compositor) {
    case WaylandDesktop::Compositor::sway:
        return QStringLiteral("sway");
    case WaylandDesktop::Compositor::labwc:
        return QStringLiteral("labwc:wlroots");
    case WaylandDesktop::Compositor::kwin:
        return QStringLiteral("KDE");
    }
    return {};
}

} // namespace

WaylandDesktop::~WaylandDesktop()
{
    m_hand.reset();
    m_compositor.reset();
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
    m_hasPictures = options.compositor != Compositor::kwin;
    switch (options.compositor) {
    case Compositor::sway:
        m_compositor = startSway(options.displays);
        break;
    case Compositor::labwc:
        m_compositor = startLabwc();
        break;
    case Compositor::kwin:
        m_compositor = startKWin(options.displays);
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
                             "for_window [app_id=\".*\"] move container to output HEADLESS-1\n");
    for (int display = 0; display < displays; ++display)
        configuration += "output HEADLESS-" + QByteArray::number(display + 1) + " position "
            + QByteArray::number(display * displaySize.width()) + " 0\n";
    writeFile(QStringLiteral("sway.conf"), configuration);
    useWlrootsWithoutScreen(displays);
    return start(QStringLiteral("sway"), { QStringLiteral("-c"), home(QStringLiteral("sway.conf")) });
}

std::unique_ptr<Program> WaylandDesktop::startLabwc()
{
    QDir().mkpath(home(QStringLiteral("labwc")));
    useWlrootsWithoutScreen(1);
    return start(QStringLiteral("labwc"), { QStringLiteral("-C"), home(QStringLiteral("labwc")) });
}

std::unique_ptr<Program> WaylandDesktop::startKWin(int displays) const
{
    QProcessEnvironment trusting = environment();
    trusting.insert(QStringLiteral("KWIN_WAYLAND_NO_PERMISSION_CHECKS"), QStringLiteral("1"));
    return std::make_unique<Program>(
        QStringLiteral("kwin_wayland"),
        QStringList{ QStringLiteral("--virtual"), QStringLiteral("--width"), QString::number(displaySize.width()),
                     QStringLiteral("--height"), QString::number(displaySize.height()),
                     QStringLiteral("--output-count"), QString::number(displays), QStringLiteral("--no-lockscreen"),
                     QStringLiteral("--socket"), QStringLiteral("wayland-0") },
        trusting);
}

QImage WaylandDesktop::picture(const QRect& area) const
{
    const QString file = home(QStringLiteral("picture.ppm"));
    const QString geometry =
        QStringLiteral("%1,%2 %3x%4").arg(area.x()).arg(area.y()).arg(area.width()).arg(area.height());
    const QStringList arguments{ QStringLiteral("-t"), QStringLiteral("ppm"), QStringLiteral("-g"), geometry, file };
    if (start(QStringLiteral("grim"), arguments)->waitForExit() != 0)
        return {};
    return QImage(file, "PPM");
}

void WaylandDesktop::killCompositor()
{
    m_compositor->kill();
}

} // namespace nookle::e2e
