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

    /// What `read` returns; none if that is more than `maximumSize` bytes, takes beyond `deadline`, or fails. `read`
    /// runs in a copy of this process: nothing that it changes is seen here, and what other threads do is not there.
    [[nodiscard]] static std::optional<QByteArray> run(const std::function<QByteArray()>& read, qsizetype maximumSize,
                                                       Clock::time_point deadline);
};

} // namespace nookle
