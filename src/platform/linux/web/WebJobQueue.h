#pragma once

#include "WebJob.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>

namespace nookle {

/// Lets a few jobs run at once, in the order in which they came.
class WebJobQueue final {
public:
    using Id = std::uint64_t;

    inline static constexpr std::size_t maximumRunning = 4;

    /// An id for the next job.
    [[nodiscard]] Id nextId() { return ++m_lastId; }

    /// Starts `job` as soon as there is a place for it.
    void add(Id id, std::unique_ptr<WebJob> job);

    /// Drops a job that has ended or is not wanted any more, and starts the next one.
    void remove(Id id);

private:
    void startNext();

    Id m_lastId = 0;
    std::map<Id, std::unique_ptr<WebJob>> m_running;
    std::map<Id, std::unique_ptr<WebJob>> m_waiting;
};

} // namespace nookle
