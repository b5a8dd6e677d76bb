#include "SealedCopy.h"

#include <QMetaObject>

#include <atomic>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace nookle {

namespace {

std::atomic<int> runningThreads = 0;

} // namespace

/// The data that the thread and the main thread share. Both own it, because either may end first.
struct SealedCopy::Order {
    RegularFile file;
    qint64 longest = 0;
    std::atomic<bool> isWanted = true;
    std::optional<RegularFile> copy;
    std::mutex mutex;
    /// Null once the `SealedCopy` was destroyed.
    SealedCopy* owner = nullptr;
};

SealedCopy::SealedCopy(RegularFile file, qint64 longest, Completion completion)
    : m_completion(std::move(completion))
    , m_order(std::make_shared<Order>())
{
    m_order->file = std::move(file);
    m_order->longest = longest;
    m_order->owner = this;
    if (!start(m_order))
        QMetaObject::invokeMethod(
            &m_context, [this, order = m_order] { finish(order); }, Qt::QueuedConnection);
}

SealedCopy::~SealedCopy()
{
    m_order->isWanted = false;
    const std::lock_guard lock(m_order->mutex);
    m_order->owner = nullptr;
}

bool SealedCopy::start(const std::shared_ptr<Order>& order)
{
    if (runningThreads >= mostThreads)
        return false;
    try {
        std::thread([order] { run(order); }).detach();
    } catch (const std::system_error&) {
        return false;
    }
    ++runningThreads;
    return true;
}

void SealedCopy::run(const std::shared_ptr<Order>& order)
{
    order->copy = order->file.sealedCopy(order->longest, order->isWanted);
    {
        const std::lock_guard lock(order->mutex);
        if (SealedCopy* const owner = order->owner)
            QMetaObject::invokeMethod(
                &owner->m_context, [owner, order] { owner->finish(order); }, Qt::QueuedConnection);
    }
    --runningThreads;
}

void SealedCopy::finish(const std::shared_ptr<Order>& order)
{
    const Completion completion = std::exchange(m_completion, nullptr);
    completion(std::move(order->copy));
}

} // namespace nookle
