#pragma once

#include "MainQueue.h"

#include <atomic>
#include <functional>
#include <mutex>

namespace nookle {

/// Lets a thread post to the main queue, although it may outlive the object that started it.
class ReturnPath final {
public:
    explicit ReturnPath(MainQueue& queue)
        : m_queue(&queue)
    {
    }

    /// From now on `post` does nothing, and the queue may be destroyed. Main thread only.
    void close();

    /// Whether the thread's results are no longer wanted. Any thread.
    [[nodiscard]] bool isClosed() const { return m_isClosed.load(std::memory_order_relaxed); }

    /// Posts `work` to the main queue, unless this is closed. Any thread.
    void post(MainQueue::Work work);

private:
    std::atomic<bool> m_isClosed = false;
    std::mutex m_mutex;
    MainQueue* m_queue;
};

/// The scheduling priority of a thread. An `idle` thread runs only when the processor has nothing else to do.
enum class ThreadPriority { normal, idle };

/// Runs `work` on a thread that nobody waits for, not even at the end of the program: a call to a file system that does
/// not answer cannot be cancelled. `work` must own all data that it needs. False when no thread can be started. `name`
/// is the thread's name in debuggers and process lists, at most 15 characters.
[[nodiscard]] bool runDetached(const char* name, ThreadPriority priority, std::function<void()> work);

} // namespace nookle
