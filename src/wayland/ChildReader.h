#pragma once

#include <QByteArray>

#include <chrono>
#include <functional>
#include <optional>

namespace nookle {

/// Reads in a child process what may never end, or be larger than the memory: the child can be ended at any time, which
/// a call of a library can not. Blocks.
class ChildReader final {
public:
    using Clock = std::chrono::steady_clock;

    /// What a child does: it runs in a copy of this process, so that nothing that it changes is seen here, and what
    /// other threads do is not there.
    struct Work {
        /// Called first. Takes and releases each lock that `read` needs, and does nothing else: a lock that another
        /// thread held when the process was copied is never released in the copy. A child that hangs here is replaced.
        std::function<void()> passLocks;
        std::function<QByteArray()> read;
    };

    /// What `work.read` returns; none if that is more than `maximumSize` bytes, takes beyond `deadline`, or fails.
    [[nodiscard]] static std::optional<QByteArray> run(const Work& work, qsizetype maximumSize,
                                                       Clock::time_point deadline);
};

} // namespace nookle
