#include "FrameRecorder.h"

#include "ProcessFigures.h"
#include "ShelfView.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWindow>

#include <time.h>

#include <utility>

namespace nookle::bench {

Moment Moment::now()
{
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return { ownTime(), std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec) };
}

double milliseconds(std::chrono::nanoseconds time)
{
    return std::chrono::duration<double, std::milli>(time).count();
}

FrameRecorder::FrameRecorder(int& argc, char** argv)
    : QApplication(argc, argv)
{
}

void FrameRecorder::clear()
{
    m_frames.clear();
    m_moves.clear();
    m_layouts = 0;
    m_busy = {};
}

bool FrameRecorder::waitForFrames(std::size_t count)
{
    constexpr int patience = 10'000;
    QElapsedTimer elapsed;
    elapsed.start();
    while (m_frames.size() < count && elapsed.elapsed() < patience)
        processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 1);
    return m_frames.size() >= count;
}

void FrameRecorder::run(std::chrono::milliseconds time)
{
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}

// A frame is what one event from the outside makes the widgets paint.
bool FrameRecorder::notify(QObject* receiver, QEvent* event)
{
    const bool isOutermost = m_depth == 0;
    const Moment start = isOutermost ? Moment::now() : Moment();
    ++m_depth;
    record(*receiver, *event);
    const bool isHandled = QApplication::notify(receiver, event);
    --m_depth;
    if (!isOutermost)
        return isHandled;
    const Moment end = Moment::now();
    m_busy += end.clock - start.clock;
    if (std::exchange(m_isPainting, false))
        m_frames.push_back(end);
    return isHandled;
}

void FrameRecorder::record(const QObject& receiver, const QEvent& event)
{
    switch (event.type()) {
    case QEvent::Paint:
        m_isPainting = m_isPainting || qobject_cast<const ShelfView*>(&receiver) != nullptr;
        return;
    case QEvent::Move:
        if (qobject_cast<const QWindow*>(&receiver))
            m_moves.push_back(Moment::now());
        return;
    case QEvent::Resize:
    case QEvent::LayoutRequest:
        ++m_layouts;
        return;
    default:
        return;
    }
}

} // namespace nookle::bench
