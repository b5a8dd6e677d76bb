#include "DistantWork.h"

#include "ReturnPath.h"

#include <deque>
#include <mutex>
#include <utility>

namespace nookle {

/// The queue of work for one mount. Shared with its thread.
class DistantWork::Lane {
public:
    explicit Lane(std::shared_ptr<ReturnPath> way)
        : m_return(std::move(way))
    {
    }

    /// Returns whether a thread must be started for the work.
    [[nodiscard]] bool add(Work work)
    {
        const std::lock_guard lock(m_mutex);
        m_waiting.push_back(std::move(work));
        return !std::exchange(m_isRunning, true);
    }

    void run()
    {
        while (const Work work = next())
            m_return->post(work());
    }

    /// Call this when no thread could be started. The next `add` tries again.
    void stop()
    {
        const std::lock_guard lock(m_mutex);
        m_isRunning = false;
    }

private:
    [[nodiscard]] Work next()
    {
        const std::lock_guard lock(m_mutex);
        if (m_waiting.empty() || m_return->isClosed()) {
            m_isRunning = false;
            return nullptr;
        }
        Work work = std::move(m_waiting.front());
        m_waiting.pop_front();
        return work;
    }

    std::shared_ptr<ReturnPath> m_return;
    std::mutex m_mutex;
    std::deque<Work> m_waiting;
    bool m_isRunning = false;
};

DistantWork::DistantWork(MainQueue& queue)
    : m_return(std::make_shared<ReturnPath>(queue))
{
}

DistantWork::~DistantWork()
{
    m_return->close();
}

void DistantWork::run(const QByteArray& mountPoint, Work work)
{
    std::shared_ptr<Lane>& lane = m_lanes[mountPoint];
    if (!lane)
        lane = std::make_shared<Lane>(m_return);
    if (lane->add(std::move(work)) && !runDetached("nookle mount", ThreadPriority::normal, [lane] { lane->run(); }))
        lane->stop();
}

} // namespace nookle
