// The program's panel on the display that DISPLAY names, as the program makes it, with its events written down. Prints
// its figures as one JSON object, by the names under which they appear in the table.
//   nookle_bench_panel DATA-HOME show      shows the panel
//   nookle_bench_panel DATA-HOME scroll    shows it, and scrolls through its items, of which there are thousands

#include "AppDelegate.h"
#include "DesktopBackendFactory.h"
#include "FileUrl.h"
#include "LinuxPlatform.h"
#include "FrameRecorder.h"
#include "ProcessFigures.h"
#include "TileList.h"

#include <QFile>
#include <QIcon>
#include <QJsonDocument>
#include <QJsonObject>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

using namespace nookle;
using namespace nookle::bench;

namespace {

using std::chrono_literals::operator""ms;

/// Longer than the panel takes to slide, and than pictures take to be made.
inline constexpr auto rest = 1500ms;

template <typename Widget> [[nodiscard]] Widget* find()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* found = window->findChild<Widget*>())
            return found;
    }
    return nullptr;
}

class PanelBenchmark {
public:
    PanelBenchmark(FrameRecorder& recorder, AppDelegate& delegate)
        : m_recorder(recorder)
        , m_delegate(delegate)
    {
    }

    /// What the main thread works from the call to the end of the first painting, and the movement after it.
    [[nodiscard]] bool show()
    {
        m_recorder.run(rest);
        m_recorder.clear();
        const Moment start = Moment::now();
        m_delegate.showShelf();
        if (!m_recorder.waitForFrames(1))
            return false;
        const Moment end = m_recorder.frames().front();
        figures.insert(QLatin1String("show"), milliseconds(end.processor - start.processor));
        figures.insert(QLatin1String("showOnTheClock"), milliseconds(end.clock - start.clock));
        m_recorder.run(50ms);
        // The slide is under way, and everything that the showing itself has to do is done.
        m_recorder.clear();
        m_recorder.run(rest);
        addSlide();
        return true;
    }

    /// A turn of the wheel at a time, from the first item downwards. The list glides after each: what counts is how
    /// long the main thread is busy up to the end of the next frame, and not the wait for its moment.
    [[nodiscard]] bool scroll()
    {
        constexpr int turns = 600;
        auto* list = find<TileList>();
        double longest = 0;
        qint64 memoryAtFirst = 0;
        for (int turn = 0; turn < turns; ++turn) {
            if (turn == turns / 6)
                memoryAtFirst = proportionalMemory(QCoreApplication::applicationPid());
            m_recorder.clear();
            turnWheel(*list);
            if (!m_recorder.waitForFrames(1))
                return false;
            longest = std::max(longest, milliseconds(m_recorder.busy()));
        }
        const qint64 memoryAtLast = proportionalMemory(QCoreApplication::applicationPid());
        figures.insert(QLatin1String("scroll"), longest);
        figures.insert(QLatin1String("scrollMemory"),
                       static_cast<double>(memoryAtLast) / static_cast<double>(memoryAtFirst));
        return list->verticalScrollBar()->value() > 0;
    }

    QJsonObject figures;

private:
    static void turnWheel(TileList& list)
    {
        constexpr int oneTurn = -120;
        QWidget* viewport = list.viewport();
        const QPointF place = viewport->rect().center();
        QWheelEvent event(place, viewport->mapToGlobal(place), {}, QPoint(0, oneTurn), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(viewport, &event);
    }

    void addSlide()
    {
        const auto& moves = m_recorder.moves();
        double longest = 0;
        for (std::size_t index = 1; index < moves.size(); ++index)
            longest = std::max(longest, milliseconds(moves[index].clock - moves[index - 1].clock));
        figures.insert(QLatin1String("slideFrames"), static_cast<int>(moves.size()));
        figures.insert(QLatin1String("slide"), longest);
        figures.insert(QLatin1String("slidePaints"), static_cast<int>(m_recorder.frames().size()));
        figures.insert(QLatin1String("slideLayouts"), m_recorder.layouts());
    }

    FrameRecorder& m_recorder;
    AppDelegate& m_delegate;
};

} // namespace

int main(int argc, char* argv[])
{
    const auto selected = selectDesktopBackend();
    const auto* choice = std::get_if<BackendChoice>(&selected);
    if (!choice)
        return EXIT_FAILURE;
    FrameRecorder recorder(argc, argv);
    QApplication::setApplicationName(QStringLiteral("nookle"));
    QApplication::setQuitOnLastWindowClosed(false);
    QIcon::setFallbackThemeName(QStringLiteral("Adwaita"));
    const QStringList arguments = QApplication::arguments();
    const QByteArray dataHome = QFile::encodeName(arguments.value(1));
    if (arguments.size() != 3)
        return EXIT_FAILURE;

    LinuxPlatform platform(dataHome, makeDesktopBackend(choice->kind));
    AppDelegate delegate(platform.parts(), child(fileUrl(dataHome), QStringLiteral("Nookle")),
                         [] { return std::optional<Failure>(); });
    delegate.applicationDidFinishLaunching();
    PanelBenchmark benchmark(recorder, delegate);
    const bool isScrolling = arguments[2] == QLatin1String("scroll");
    if (!benchmark.show() || (isScrolling && !benchmark.scroll()))
        return EXIT_FAILURE;
    std::puts(QJsonDocument(benchmark.figures).toJson(QJsonDocument::Compact).constData());
    return EXIT_SUCCESS;
}
