#pragma once

#include "MainQueue.h"

#include <cstdint>
#include <map>
#include <utility>

namespace nookle {

/// A main queue in virtual time: nothing runs until a test advances it.
class FakeMainQueue : public MainQueue {
public:
    ~FakeMainQueue() override;

    std::unique_ptr<Cancellable> after(double seconds, Work work) override;
    std::unique_ptr<Cancellable> every(double seconds, Work work) override;
    void post(Work work) override;

    /// Runs, in order, everything that falls due within the next `seconds`.
    void advance(double seconds);

    /// Runs what was posted, and what that posts in turn, without any time passing.
    void runPosted() { advance(0); }

    /// How many delayed tasks and repeating timers are waiting.
    [[nodiscard]] int waitingTasks() const;
    [[nodiscard]] int waitingTimers() const;

    /// The virtual time since the queue was made, in seconds.
    [[nodiscard]] double now() const { return m_microseconds / 1e6; }

private:
    enum class Kind { posted, task, timer };

    struct Entry {
        Kind kind;
        std::int64_t interval;
        Work work;
    };

    using Key = std::pair<std::int64_t, std::uint64_t>;

    Key insert(Kind kind, double seconds, Work work);
    [[nodiscard]] std::unique_ptr<Cancellable> insertCancellable(Kind kind, double seconds, Work work);
    void cancel(std::uint64_t order);
    [[nodiscard]] int count(Kind kind) const;

    double m_microseconds = 0;
    std::uint64_t m_lastOrder = 0;
    std::map<Key, Entry> m_entries;
    /// The place of the entry of each living handle, by its order.
    std::map<std::uint64_t, Key> m_places;
};

} // namespace nookle
