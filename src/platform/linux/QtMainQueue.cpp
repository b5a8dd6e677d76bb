#include "QtMainQueue.h"

#include <QMetaObject>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace nookle {

namespace {

[[nodiscard]] int milliseconds(double seconds)
{
    return static_cast<int>(std::clamp(std::round(seconds * 1000), 0.0, double(std::numeric_limits<int>::max())));
}

class TimerTask final : public DelayedTask {
public:
    TimerTask(double seconds, MainQueue::Work work)
        : m_work(std::move(work))
    {
        m_timer.setSingleShot(true);
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
            // The work may destroy this task, and its own closure must not go with it.
            const MainQueue::Work running = std::exchange(m_work, nullptr);
            running();
        });
        m_timer.start(milliseconds(seconds));
    }

private:
    MainQueue::Work m_work;
    QTimer m_timer;
};

class QtRepeatingTimer final : public RepeatingTimer {
public:
    QtRepeatingTimer(double seconds, MainQueue::Work work)
        : m_work(std::make_shared<MainQueue::Work>(std::move(work)))
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
            // The work may destroy this timer, and its own closure must not go with it.
            const std::shared_ptr<MainQueue::Work> running = m_work;
            (*running)();
        });
        m_timer.start(milliseconds(seconds));
    }

private:
    std::shared_ptr<MainQueue::Work> m_work;
    QTimer m_timer;
};

} // namespace

std::unique_ptr<DelayedTask> QtMainQueue::after(double seconds, Work work)
{
    return std::make_unique<TimerTask>(seconds, std::move(work));
}

std::unique_ptr<RepeatingTimer> QtMainQueue::every(double seconds, Work work)
{
    return std::make_unique<QtRepeatingTimer>(seconds, std::move(work));
}

void QtMainQueue::post(Work work)
{
    QMetaObject::invokeMethod(
        &m_context, [work = std::move(work)] { work(); }, Qt::QueuedConnection);
}

} // namespace nookle
