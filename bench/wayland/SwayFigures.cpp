#include "SwayFigures.h"

#include "ProcessFigures.h"
#include "Report.h"
#include "SampleShelf.h"
#include "SurfaceLog.h"
#include "Waiting.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <thread>
#include <utility>
#include <vector>

namespace nookle::bench {

namespace {

using namespace e2e;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""us;

inline constexpr int panelWidth = 112;
inline constexpr auto timeToSettle = 3s;
/// Threads that have nothing to do any more end after half a minute.
inline constexpr auto timeToGoToSleep = 40s;
inline constexpr auto idle = 60s;
const QString wireLog = QStringLiteral("WAYLAND_DEBUG");

[[nodiscard]] double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

[[nodiscard]] double mebibytes(qint64 bytes)
{
    constexpr double mebibyte = 1024 * 1024;
    return static_cast<double>(bytes) / mebibyte;
}

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
    constexpr int runs = 21;
    if (!setUp())
        return false;
    m_desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"), "[General]\npanelPinned=true\n");
    m_desktop->setVariable(wireLog, QStringLiteral("client"));
    std::vector<double> floors;
    std::vector<double> times;
    // Not the first run of each, which reads from the disk.
    for (int run = 0; run <= runs; ++run) {
        const auto floor = timeTo(m_floor, hasPicture);
        const auto time = timeTo(qEnvironmentVariable("NOOKLE_PROGRAM"), hasPanel);
        if (!floor || !time)
            return false;
        if (run == 0)
            continue;
        floors.push_back(*floor);
        times.push_back(*time);
    }
    m_report.addRatio(QStringLiteral("sway: start to the panel ready, empty shelf"), median(times),
                      QStringLiteral("ms"), median(floors), 1.6);
    return true;
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
    m_report.addRatio(QStringLiteral("sway: memory (PSS) hidden and idle, 50 items"),
                      mebibytes(proportionalMemory(process)), QStringLiteral("MiB"), mebibytes(floor), 1.5);

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
