#pragma once

#include "ReadingChild.h"

#include <QByteArray>

#include <optional>

namespace nookle {

/// Reads in a child process what may never end, or be larger than the memory: the child can be ended at any time, which
/// a call of a library can not. Blocks.
class ChildReader final {
public:
    using Clock = ReadingChild::Clock;
    using Work = ReadingChild::Work;

    /// What `work.read` returns; none if that is more than `maximumSize` bytes, takes beyond `deadline`, or fails.
    [[nodiscard]] static std::optional<QByteArray> run(const Work& work, qsizetype maximumSize,
                                                       Clock::time_point deadline);
};

} // namespace nookle
