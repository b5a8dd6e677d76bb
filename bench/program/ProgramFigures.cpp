#include "ProgramFigures.h"

#include "BenchDesktop.h"
#include "ProcessFigures.h"
#include "Report.h"
#include "Shelf.h"
#include "StartComparison.h"
#include "Statistics.h"
#include "Waiting.h"
#include "WindowLog.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <algorithm>
#include <thread>
#include <vector>

namespace nookle::bench {

namespace {

using namespace e2e;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""us;

inline constexpr int panelWidth = 112;
inline constexpr auto timeToSettle = 3s;
/// Threads that have nothing to do any more end after half a minute.
inline constexpr auto timeToGoToSleep = 40s;

/// From the start of a program to something that it does, in milliseconds.
template <typename Wait>
[[nodiscard]] std::optional<double> timeTo(const PrivateDesktop& desktop, const QString& path, Wait wait)
{
    QElapsedTimer elapsed;
    elapsed.start();
    const auto program = desktop.start(path);
    const bool isDone = wait();
    const auto time = static_cast<double>(elapsed.nsecsElapsed()) / 1e6;
    if (!isDone)
        qWarning("%s shows no window: %s", qPrintable(path), program->log().constData());
    return isDone ? std::optional(time) : std::nullopt;
}

/// Until its empty window is seen.
[[nodiscard]] std::optional<double> timeOfFloor(PrivateDesktop& desktop, const QString& path)
{
    XScreen& screen = desktop.screen();
    const QRect place(screen.geometry().right() - panelWidth / 2, screen.geometry().center().y(), 1, 1);
    const QImage before = screen.picture(place);
    return timeTo(desktop, path, [&] {
        QElapsedTimer elapsed;
        elapsed.start();
        while (elapsed.elapsed() < patience && screen.picture(place) == before)
            std::this_thread::sleep_for(1ms);
        return elapsed.elapsed() < patience;
    });
}

/// Until its panel is in its place, beyond the edge of the screen, and begins to slide. It is pinned then, so that it
/// is shown as the last thing of the start.
[[nodiscard]] std::optional<double> timeOfNookle(const PrivateDesktop& desktop, WindowLog& log, const QString& path)
{
    log.forget();
    return timeTo(desktop, path, [&] { return log.waitForWindow(panelWidth); });
}

void toggle(XScreen& screen)
{
    const std::vector<xcb_keysym_t> keys{ XScreen::control, XScreen::alt, XScreen::super, 'd' };
    for (const xcb_keysym_t key : keys)
        screen.pressKey(key);
    for (const xcb_keysym_t key : keys)
        screen.releaseKey(key);
}

/// Shows the panel and hides it again, so that everything that a showing loads is there.
[[nodiscard]] bool showOnce(PrivateDesktop& desktop, const Shelf& shelf)
{
    toggle(desktop.screen());
    if (!waitFor([&] { return shelf.isAtRest(desktop.screen().geometry().width()); }))
        return false;
    std::this_thread::sleep_for(timeToSettle);
    toggle(desktop.screen());
    if (!waitFor([&] { return !shelf.panel(); }))
        return false;
    std::this_thread::sleep_for(timeToSettle);
    return true;
}

/// Moves the mouse to and fro a thousand times a second.
void shake(XScreen& screen, std::chrono::seconds time)
{
    constexpr int distance = 200;
    auto next = std::chrono::steady_clock::now();
    const auto end = next + time;
    for (int step = 0; next < end; ++step) {
        screen.moveBy(QPoint(step / distance % 2 == 0 ? 1 : -1, 0));
        next += 1ms;
        std::this_thread::sleep_until(next);
    }
}

/// A program with a window that something can be dragged out of, and the place to press on.
struct DragSource {
    std::unique_ptr<Program> program;
    QPoint place;
};

[[nodiscard]] std::optional<DragSource> openDragSource(PrivateDesktop& desktop, const QString& peer)
{
    desktop.writeFile(QStringLiteral("offered"), "file:///etc/hostname\r\n");
    DragSource source;
    source.program = desktop.start(
        peer, { QStringLiteral("offer"), desktop.home(QStringLiteral("offered")), QStringLiteral("text/uri-list") });
    std::optional<XWindow> window;
    if (!waitFor([&] { return (window = desktop.screen().window("Peer", 400)).has_value(); }))
        return std::nullopt;
    source.place = window->frame.center();
    return source;
}

/// From the release of the button over an empty shelf to the first pixels of a tile, in milliseconds.
[[nodiscard]] std::optional<double> timeOfDrop(const Programs& programs)
{
    const auto desktop = makeDesktop();
    if (!desktop)
        return std::nullopt;
    XScreen& screen = desktop->screen();
    const int rightEdge = screen.geometry().width();
    Shelf shelf(*desktop, programs.nookle);
    const auto source = openDragSource(*desktop, programs.peer);
    if (!source || !shelf.start() || !screen.beginDrag(source->place))
        return std::nullopt;
    screen.moveTo(QPoint(rightEdge - 1, 300));
    if (!waitFor([&] { return shelf.isAtRest(rightEdge); }))
        return std::nullopt;
    screen.moveTo(QPoint(rightEdge - panelWidth / 2, 400));
    const auto isTarget = [&] {
        screen.moveTo(screen.pointer() + QPoint(0, 1));
        return shelf.isDropTarget();
    };
    if (!waitFor(isTarget))
        return std::nullopt;
    const QRect tile(shelf.firstTile() - QPoint(20, 20), QSize(40, 40));
    const QImage empty = screen.picture(tile);
    QElapsedTimer elapsed;
    elapsed.start();
    screen.release();
    while (screen.picture(tile) == empty && elapsed.elapsed() < patience)
        std::this_thread::sleep_for(500us);
    return static_cast<double>(elapsed.nsecsElapsed()) / 1e6;
}

[[nodiscard]] std::optional<QJsonObject> panelFigures(const Programs& programs, int itemCount, const QString& mode)
{
    const auto desktop = makeDesktop();
    if (!desktop || !writeShelf(*desktop, itemCount))
        return std::nullopt;
    const auto program = desktop->start(programs.panel, { desktop->home(QStringLiteral("data")), mode });
    const bool hasEnded = waitFor([&] { return !program->isRunning(); }, 120'000);
    const QJsonObject figures = QJsonDocument::fromJson(program->readLine()).object();
    if (hasEnded && !figures.isEmpty())
        return figures;
    qWarning("the panel's benchmark fails: %s", program->log().constData());
    return std::nullopt;
}

[[nodiscard]] double value(const QJsonObject& figures, const char* name)
{
    return figures.value(QLatin1String(name)).toDouble();
}

} // namespace

bool addStart(const Programs& programs, Report& report)
{
    const auto desktop = makeDesktop();
    const auto log = desktop ? WindowLog::tryCreate(desktop->display()) : nullptr;
    if (!log)
        return false;
    desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"), "[General]\npanelPinned=true\n");
    return compareStarts(
        report, QStringLiteral("start to the panel ready, empty shelf"),
        [&] { return timeOfFloor(*desktop, programs.floor); },
        [&] { return timeOfNookle(*desktop, *log, programs.nookle); }, 1.6);
}

bool addIdling(const Programs& programs, Report& report)
{
    const auto desktop = makeDesktop();
    if (!desktop || !writeShelf(*desktop, 50))
        return false;
    qint64 floor = 0;
    {
        const auto program = desktop->start(programs.floor);
        std::this_thread::sleep_for(timeToSettle);
        floor = proportionalMemory(program->processId());
    }
    Shelf shelf(*desktop, programs.nookle);
    if (!shelf.start() || !showOnce(*desktop, shelf))
        return false;
    report.addMemory(QStringLiteral("memory (PSS) hidden and idle, 50 items"), proportionalMemory(shelf.processId()),
                     floor, 1.5);

    // The server tells all programs once that another device moves the pointer.
    shake(desktop->screen(), 1s);
    std::this_thread::sleep_for(timeToGoToSleep);
    const std::chrono::seconds idle(programs.idleSeconds);
    const auto perMinute = [&](qint64 count) { return static_cast<double>(count) * 60 / programs.idleSeconds; };
    const WakeUps before = wakeUps(shelf.processId());
    std::this_thread::sleep_for(idle);
    const WakeUps between = wakeUps(shelf.processId());
    shake(desktop->screen(), idle);
    const WakeUps after = wakeUps(shelf.processId());
    report.addAmount(QStringLiteral("wake-ups a minute, hidden and idle"), perMinute(countSince(before, between)), {},
                     2);
    report.addAmount(QStringLiteral("wake-ups a minute, the mouse moving at 1,000 Hz"),
                     perMinute(countSince(between, after)), {}, 2);
    return true;
}

bool addDragging(const Programs& programs, Report& report)
{
    constexpr std::chrono::seconds time(10);
    const auto desktop = makeDesktop();
    if (!desktop)
        return false;
    Shelf shelf(*desktop, programs.nookle);
    const auto source = openDragSource(*desktop, programs.peer);
    if (!source || !shelf.start() || !desktop->screen().beginDrag(source->place))
        return false;
    const auto before = processorTime(shelf.processId());
    shake(desktop->screen(), time);
    const auto after = processorTime(shelf.processId());
    desktop->screen().release();
    const double share = std::chrono::duration<double>(after - before) / std::chrono::duration<double>(time);
    report.addAmount(QStringLiteral("processor time while another program drags at 1,000 Hz"), share * 100,
                     QStringLiteral("%"), 1);
    return true;
}

bool addDrop(const Programs& programs, Report& report)
{
    constexpr int runs = 5;
    std::vector<double> times;
    for (int run = 0; run < runs; ++run) {
        const auto time = timeOfDrop(programs);
        if (!time) {
            qWarning("nothing can be dropped");
            return false;
        }
        times.push_back(*time);
    }
    report.addTime(QStringLiteral("drop of one file to its tile painted"), median(times), 50);
    return true;
}

bool addPanel(const Programs& programs, Report& report)
{
    constexpr double interval = 1000.0 / 60;
    const auto few = panelFigures(programs, 50, QStringLiteral("show"));
    const auto many = panelFigures(programs, 10'000, QStringLiteral("scroll"));
    if (!few || !many)
        return false;
    report.addTime(QStringLiteral("show() to the first frame, main thread, 50 items"), value(*few, "show"), 16);
    report.addTime(QStringLiteral("show() to the first frame, main thread, 10,000 items"), value(*many, "show"), 50);
    report.addTime(QStringLiteral("the slide's latest frame"), value(*few, "slide"), 1.5 * interval);
    report.addAmount(QStringLiteral("repaints a frame of the slide"),
                     value(*few, "slidePaints") / std::max(value(*few, "slideFrames"), 1.0), {}, 1);
    report.addAmount(QStringLiteral("layouts during the slide"), value(*few, "slideLayouts"), {}, 0);
    report.addTime(QStringLiteral("scrolling 10,000 items, the longest frame, main thread"), value(*many, "scroll"),
                   interval);
    report.addAmount(QStringLiteral("scrolling 10,000 items, memory after 600 turns / after 100"),
                     value(*many, "scrollMemory"), {}, 1.05);
    return true;
}

bool addSize(const Programs& programs, Report& report)
{
    constexpr double megabyte = 1e6;
    const QTemporaryDir folder;
    const QString stripped = folder.filePath(QStringLiteral("nookle"));
    if (QProcess::execute(QStringLiteral("strip"), { QStringLiteral("-o"), stripped, programs.nookle }) != 0)
        return false;
    report.addAmount(QStringLiteral("the program, stripped"),
                     static_cast<double>(QFileInfo(stripped).size()) / megabyte, QStringLiteral("MB"), 1.5);
    return true;
}

} // namespace nookle::bench
