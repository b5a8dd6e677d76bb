#include "PrivateDesktop.h"

#include "Waiting.h"

#include <utility>

namespace nookle::e2e {

namespace {

// What a window manager writes on the root window: that it is there, and then the windows that it manages.
constexpr auto* windowManagerMark = "_NET_SUPPORTING_WM_CHECK";
constexpr auto* windowList = "_NET_CLIENT_LIST";

} // namespace

PrivateDesktop::~PrivateDesktop()
{
    m_windowManager.reset();
    stopBus();
}

std::unique_ptr<PrivateDesktop> PrivateDesktop::tryCreate(const Options& options)
{
    std::unique_ptr<PrivateDesktop> desktop(new PrivateDesktop);
    if (!desktop->hasHome() || !desktop->startServer(options.size) || !desktop->startBus())
        return nullptr;
    if (options.hasTwoDisplays && !desktop->splitDisplay(options.size))
        return nullptr;
    if (!options.windowManager.isEmpty() && !desktop->startWindowManager(options.windowManager))
        return nullptr;
    return desktop;
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
    setVariable(QStringLiteral("DISPLAY"), QString::fromLatin1(display));
    m_screen = std::make_unique<XScreen>(display);
    return true;
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

} // namespace nookle::e2e
