#pragma once

#include "MainQueue.h"

#include <atomic>
#include <functional>
#include <mutex>

namespace nookle {

/// The way back to the main queue for a thread that may outlive whoever started it.
class ReturnPath final {
public:
    explicit ReturnPath(MainQueue& queue)
        : m_queue(&queue)
    {
    }

    /// From now on nothing is posted, and the queue may go. Main thread only.
    void close();

    /// Whether nobody wants anything of the thread any more. Any thread.
    [[nodiscard]] bool isClosed() const { return m_isClosed.load(std::memory_order_relaxed); }

    /// Posts `work`, unless this is closed. Any thread.
    void post(MainQueue::Work work);

private:
    std::atomic<bool> m_isClosed = false;
    std::mutex m_mutex;
    MainQueue* m_queue;
};

/// How soon a thread runs when others want to.
enum class ThreadPriority { normal, idle };

/// Runs `work` on a thread that nobody waits for, not even the end of the program: a look at a file system that does
/// not answer cannot be ended. `work` must own all that it needs. False when there is no thread to be had. The name is
/// for those who look at the process, and has at most 15 characters.
[[nodiscard]] bool runDetached(const char* name, ThreadPriority priority, std::function<void()> work);

} // namespace nookle
