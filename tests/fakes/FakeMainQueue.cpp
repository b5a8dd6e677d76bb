#include "FakeMainQueue.h"

#include <cmath>

namespace nookle {

namespace {

[[nodiscard]] std::int64_t microseconds(double seconds)
{
    return std::llround(seconds * 1e6);
}

} // namespace

FakeMainQueue::~FakeMainQueue() = default;

FakeMainQueue::Key FakeMainQueue::insert(Kind kind, double seconds, Work work)
{
    const Key key{ static_cast<std::int64_t>(m_microseconds) + microseconds(seconds), ++m_lastOrder };
    m_entries.emplace(key, Entry{ kind, microseconds(seconds), std::move(work) });
    return key;
}

std::unique_ptr<Cancellable> FakeMainQueue::insertCancellable(Kind kind, double seconds, Work work)
{
    const Key key = insert(kind, seconds, std::move(work));
    m_places.emplace(key.second, key);
    return std::make_unique<Cancellable>([this, order = key.second] { cancel(order); });
}

void FakeMainQueue::cancel(std::uint64_t order)
{
    const auto place = m_places.find(order);
    if (place == m_places.end())
        return;
    m_entries.erase(place->second);
    m_places.erase(place);
}

std::unique_ptr<Cancellable> FakeMainQueue::after(double seconds, Work work)
{
    return insertCancellable(Kind::task, seconds, std::move(work));
}

std::unique_ptr<Cancellable> FakeMainQueue::every(double seconds, Work work)
{
    return insertCancellable(Kind::timer, seconds, std::move(work));
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
