#include "FakeMainQueue.h"

#include <cmath>

namespace nookle {

namespace {

[[nodiscard]] std::int64_t microseconds(double seconds)
{
    return std::llround(seconds * 1e6);
}

} // namespace

class FakeMainQueue::Handle final : public DelayedTask, public RepeatingTimer {
public:
    Handle(FakeMainQueue& queue, std::uint64_t order)
        : m_queue(queue)
        , m_order(order)
    {
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    ~Handle() override
    {
        const auto place = m_queue.m_places.find(m_order);
        if (place == m_queue.m_places.end())
            return;
        m_queue.m_entries.erase(place->second);
        m_queue.m_places.erase(place);
    }

private:
    FakeMainQueue& m_queue;
    std::uint64_t m_order;
};

FakeMainQueue::~FakeMainQueue() = default;

FakeMainQueue::Key FakeMainQueue::insert(Kind kind, double seconds, Work work)
{
    const Key key{ static_cast<std::int64_t>(m_microseconds) + microseconds(seconds), ++m_lastOrder };
    m_entries.emplace(key, Entry{ kind, microseconds(seconds), std::move(work) });
    return key;
}

std::unique_ptr<DelayedTask> FakeMainQueue::after(double seconds, Work work)
{
    const Key key = insert(Kind::task, seconds, std::move(work));
    m_places.emplace(key.second, key);
    return std::make_unique<Handle>(*this, key.second);
}

std::unique_ptr<RepeatingTimer> FakeMainQueue::every(double seconds, Work work)
{
    const Key key = insert(Kind::timer, seconds, std::move(work));
    m_places.emplace(key.second, key);
    return std::make_unique<Handle>(*this, key.second);
}

void FakeMainQueue::post(Work work)
{
    insert(Kind::posted, 0, std::move(work));
}

void FakeMainQueue::advance(double seconds)
{
    const std::int64_t end = static_cast<std::int64_t>(m_microseconds) + microseconds(seconds);
    while (!m_entries.empty() && m_entries.begin()->first.first <= end) {
        const Key key = m_entries.begin()->first;
        Entry entry = std::move(m_entries.begin()->second);
        m_entries.erase(m_entries.begin());
        m_microseconds = static_cast<double>(key.first);
        if (entry.kind == Kind::task)
            m_places.erase(key.second);
        if (entry.kind == Kind::timer) {
            const Key next{ key.first + entry.interval, key.second };
            m_entries.emplace(next, entry);
            m_places[key.second] = next;
        }
        entry.work();
    }
    m_microseconds = static_cast<double>(end);
}

int FakeMainQueue::count(Kind kind) const
{
    int found = 0;
    for (const auto& [key, entry] : m_entries)
        found += entry.kind == kind ? 1 : 0;
    return found;
}

int FakeMainQueue::waitingTasks() const
{
    return count(Kind::task);
}

int FakeMainQueue::waitingTimers() const
{
    return count(Kind::timer);
}

} // namespace nookle
