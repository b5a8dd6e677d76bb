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

enum class Repeats { no, yes };

// The work may destroy the timer, because Qt keeps the called function alive until it returns.
[[nodiscard]] std::unique_ptr<Cancellable> started(double seconds, Repeats repeats, MainQueue::Work work)
{
    auto timer = std::make_shared<QTimer>();
    timer->setSingleShot(repeats == Repeats::no);
    timer->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer.get(), &QTimer::timeout, timer.get(), std::move(work));
    timer->start(milliseconds(seconds));
    return Cancellable::keeping(std::move(timer));
}

} // namespace

std::unique_ptr<Cancellable> QtMainQueue::after(double seconds, Work work)
{
    return started(seconds, Repeats::no, std::move(work));
}

std::unique_ptr<Cancellable> QtMainQueue::every(double seconds, Work work)
{
    return started(seconds, Repeats::yes, std::move(work));
}

void QtMainQueue::post(Work work)
{
    QMetaObject::invokeMethod(
        &m_context, [work = std::move(work)] { work(); }, Qt::QueuedConnection);
}

} // namespace nookle
