#include "ReturnPath.h"

#include <pthread.h>
#include <sched.h>

#include <system_error>
#include <thread>
#include <utility>

namespace nookle {

void ReturnPath::close()
{
    m_isClosed = true;
    const std::lock_guard lock(m_mutex);
    m_queue = nullptr;
}

void ReturnPath::post(MainQueue::Work work)
{
    const std::lock_guard lock(m_mutex);
    if (m_queue != nullptr)
        m_queue->post(std::move(work));
}

bool runDetached(const char* name, ThreadPriority priority, std::function<void()> work)
{
    const auto run = [name, priority, work = std::move(work)] {
        ::pthread_setname_np(::pthread_self(), name);
        const sched_param none{};
        if (priority == ThreadPriority::idle)
            ::pthread_setschedparam(::pthread_self(), SCHED_IDLE, &none);
        work();
    };
    try {
        std::thread(run).detach();
    } catch (const std::system_error&) {
        return false;
    }
    return true;
}

} // namespace nookle
