#include "WebJobQueue.h"

#include <utility>

namespace nookle {

void WebJobQueue::add(Id id, std::unique_ptr<WebJob> job)
{
    m_waiting.emplace(id, std::move(job));
    startNext();
}

void WebJobQueue::remove(Id id)
{
    m_waiting.erase(id);
    m_running.erase(id);
    startNext();
}

void WebJobQueue::startNext()
{
    while (m_running.size() < maximumRunning && !m_waiting.empty()) {
        const auto job = m_running.insert(m_waiting.extract(m_waiting.begin())).position;
        job->second->start();
    }
}

} // namespace nookle
