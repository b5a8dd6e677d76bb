#include "SwayFigures.h"

#include "ProcessFigures.h"
#include "Report.h"
#include "SampleShelf.h"
#include "StartComparison.h"
#include "SurfaceLog.h"
#include "Waiting.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <thread>
#include <utility>

namespace nookle::bench {

namespace {

using namespace e2e;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""us;

inline constexpr int panelWidth = 112;
/// More than on X11: when the panel's place is asked for, its content has been drawn, which loads the fonts.
inline constexpr double startBudget = 1.8;
inline constexpr auto timeToSettle = 3s;
/// Threads that have nothing to do any more end after half a minute.
inline constexpr auto timeToGoToSleep = 40s;
inline constexpr auto idle = 60s;
const QString wireLog = QStringLiteral("WAYLAND_DEBUG");

// As on X11, its last step is to slide from beyond the edge.
[[nodiscard]] bool hasPanel(const QByteArray& log)
{
    return hasPlace(log, panelWidth);
}

/// What a program writes meanwhile is read: it would wait otherwise.
void rest(std::chrono::milliseconds time)
{
    static_cast<void>(holdsFor([] { return true; }, static_cast<int>(time.count())));
}

} // namespace

SwayFigures::SwayFigures(Report& report, QString floor)
    : m_report(report)
    , m_floor(std::move(floor))
{
}

SwayFigures::~SwayFigures()
{
    tearDownDesktop();
}

bool SwayFigures::setUp()
{
    tearDownDesktop();
    if (!setUpDesktop(WaylandDesktop::Compositor::sway))
        return false;
    // This program has libraries of its own: what it shared with another one would count half there.
    m_desktop->setVariable(QStringLiteral("LD_LIBRARY_PATH"), QString());
    return true;
}

std::optional<double> SwayFigures::timeTo(const QString& path, bool (*hasHappened)(const QByteArray& log))
{
    QElapsedTimer elapsed;
    elapsed.start();
    const auto program = m_desktop->start(path);
    // Each look takes a processor's time, too.
    for (qsizetype seen = 0; elapsed.elapsed() < patience; std::this_thread::sleep_for(500us)) {
        QCoreApplication::processEvents();
        const QByteArray log = program->log();
        if (log.size() == seen)
            continue;
        seen = log.size();
        if (hasHappened(log))
            break;
    }
    if (elapsed.elapsed() < patience)
        return static_cast<double>(elapsed.nsecsElapsed()) / 1e6;
    qWarning("%s shows no window", qPrintable(path));
    return std::nullopt;
}

bool SwayFigures::addStart()
{
    if (!setUp())
        return false;
    m_desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"), "[General]\npanelPinned=true\n");
    m_desktop->setVariable(wireLog, QStringLiteral("client"));
    return compareStarts(
        m_report, QStringLiteral("sway: start to the panel ready, empty shelf"),
        [this] { return timeTo(m_floor, hasPicture); },
        [this] { return timeTo(qEnvironmentVariable("NOOKLE_PROGRAM"), hasPanel); }, startBudget);
}

// So that everything that a showing loads is there.
bool SwayFigures::showOnce()
{
    const auto toggle = [this] { return activate(QStringLiteral("toggle")); };
    if (!toggle() || !waitFor([this] { return isPanelOut(); }))
        return false;
    rest(timeToSettle);
    if (!toggle() || !waitFor([this] { return isPanelGone(); }))
        return false;
    rest(timeToSettle);
    return true;
}

void SwayFigures::moveFor(std::chrono::seconds time)
{
    const auto end = std::chrono::steady_clock::now() + time;
    for (int step = 0; std::chrono::steady_clock::now() < end; ++step)
        hand().moveTo(middle + QPoint(step % 2, 0));
}

bool SwayFigures::addIdling()
{
    if (!setUp() || !writeSampleShelf(home("data"), home("files"), 50))
        return false;
    qint64 floor = 0;
    {
        const auto program = m_desktop->start(m_floor);
        rest(timeToSettle);
        floor = proportionalMemory(program->processId());
    }
    if (!startShelf() || !showOnce())
        return false;
    const qint64 process = m_shelf->processId();
    m_report.addMemory(QStringLiteral("sway: memory (PSS) hidden and idle, 50 items"), proportionalMemory(process),
                       floor, 1.5);

    rest(timeToGoToSleep);
    const WakeUps before = wakeUps(process);
    rest(idle);
    const WakeUps between = wakeUps(process);
    moveFor(idle);
    const WakeUps after = wakeUps(process);
    m_report.addAmount(QStringLiteral("sway: wake-ups a minute, hidden and idle"),
                       static_cast<double>(countSince(before, between)), {}, 2);
    m_report.addAmount(QStringLiteral("sway: wake-ups a minute, the mouse moving"),
                       static_cast<double>(countSince(between, after)), {}, 2);
    return true;
}

bool SwayFigures::addPictures()
{
    constexpr auto time = 5s;
    if (!setUp())
        return false;
    m_desktop->setVariable(wireLog, QStringLiteral("client"));
    if (!startShelf() || !showOnce())
        return false;
    const qsizetype before = commits(m_shelf->log());
    rest(time);
    moveFor(time);
    rest(timeToSettle);
    const qsizetype after = commits(m_shelf->log());
    if (before == 0) {
        qWarning("the program does not say what it tells the compositor");
        return false;
    }
    m_report.addAmount(QStringLiteral("sway: changes told of the strips, hidden and idle"),
                       static_cast<double>(after - before), {}, 0);
    return true;
}

} // namespace nookle::bench
