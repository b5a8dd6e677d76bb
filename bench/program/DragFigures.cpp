#include "DragFigures.h"

#include "BenchDesktop.h"
#include "ProcessFigures.h"
#include "ProgramFigures.h"
#include "Report.h"
#include "Shelf.h"
#include "Statistics.h"
#include "Waiting.h"

#include <QDir>
#include <QElapsedTimer>

#include <chrono>
#include <optional>
#include <thread>
#include <vector>

namespace nookle::bench {

namespace {

using namespace e2e;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""us;

inline constexpr int items = 1000;
inline constexpr int runs = 40;
/// The first drags load what all need.
inline constexpr int firstRuns = 20;
/// After a drag the files are looked for in the Trash for five seconds.
inline constexpr auto timeToLook = 6s;
/// Nothing shows that a drag is over that nobody has taken.
inline constexpr auto timeToEnd = 500ms;
/// From the upper right corner of the panel to the handle of all items.
inline constexpr QPoint intoHandle(-41, 17);
const QByteArray dragSelection("XdndSelection");

struct Usage {
    double memory = 0;
    double descriptors = 0;
};

[[nodiscard]] Usage usage(const Shelf& shelf)
{
    std::this_thread::sleep_for(timeToLook);
    const QDir descriptors(QStringLiteral("/proc/%1/fd").arg(shelf.processId()));
    return { static_cast<double>(ownMemory(shelf.processId())),
             static_cast<double>(
                 descriptors.entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size()) };
}

[[nodiscard]] double milliseconds(std::chrono::nanoseconds time)
{
    return static_cast<double>(time.count()) / 1e6;
}

/// In milliseconds.
struct Duration {
    /// As a user sees it: what else runs on the machine adds to it.
    double seen = 0;
    /// What the program itself has taken of the processors.
    double own = 0;
};

/// From the movement that begins a drag of everything until the drag is there. The drop is over nothing that takes it.
[[nodiscard]] std::optional<Duration> timeOfDrag(XScreen& screen, const Shelf& shelf)
{
    const auto panel = shelf.panel();
    if (!panel)
        return std::nullopt;
    screen.disown(dragSelection);
    screen.moveTo(panel->frame.topRight() + intoHandle);
    screen.press();
    const auto before = processorTime(shelf.processId());
    QElapsedTimer elapsed;
    elapsed.start();
    screen.moveBy(QPoint(-20, 0));
    while (!screen.hasOwner(dragSelection) && elapsed.elapsed() < patience)
        std::this_thread::sleep_for(200us);
    const Duration time{ milliseconds(std::chrono::nanoseconds(elapsed.nsecsElapsed())),
                         milliseconds(processorTime(shelf.processId()) - before) };
    const bool hasBegun = screen.hasOwner(dragSelection);
    screen.release();
    std::this_thread::sleep_for(timeToEnd);
    return hasBegun ? std::optional(time) : std::nullopt;
}

void addDurations(const std::vector<Duration>& durations, Report& report)
{
    constexpr double budget = 100;
    std::vector<double> seen;
    std::vector<double> own;
    for (const Duration& each : durations) {
        seen.push_back(each.seen);
        own.push_back(each.own);
    }
    report.addTime(QStringLiteral("dragging 1,000 items, from the movement to the drag"), quantile(seen, 0.5), budget);
    report.addTime(QStringLiteral("19 of 20 such drags"), quantile(seen, 0.95), budget);
    report.addTime(QStringLiteral("the slowest of 40 such drags"), quantile(seen, 1), budget);
    report.addTime(QStringLiteral("the same in processor time"), quantile(own, 1), budget);
}

} // namespace

bool addDragOut(const Programs& programs, Report& report)
{
    const auto desktop = makeDesktop();
    if (!desktop || !writeShelf(*desktop, items))
        return false;
    // Pinned, so that it stays on the screen between the drags.
    desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"), "[General]\npanelPinned=true\n");
    XScreen& screen = desktop->screen();
    Shelf shelf(*desktop, programs.nookle);
    if (!shelf.start() || !waitFor([&] { return shelf.isAtRest(screen.geometry().width()); }))
        return false;
    std::vector<Duration> durations;
    Usage before;
    for (int run = 0; run < runs; ++run) {
        if (run == firstRuns)
            before = usage(shelf);
        const auto time = timeOfDrag(screen, shelf);
        if (!time) {
            qWarning("no drag of everything begins: %s", shelf.log().constData());
            return false;
        }
        durations.push_back(*time);
    }
    const Usage after = usage(shelf);
    addDurations(durations, report);
    report.addAmount(QStringLiteral("own memory after 40 such drags / after 20"), after.memory / before.memory, {},
                     1.05);
    report.addAmount(QStringLiteral("open files after 40 such drags / after 20"),
                     after.descriptors / before.descriptors, {}, 1);
    return true;
}

} // namespace nookle::bench
