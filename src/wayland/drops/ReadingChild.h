#pragma once

#include "FileDescriptor.h"

#include <QByteArray>

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include <sys/types.h>

namespace nookle {

/// A child process that reads what may never end, or be larger than the memory, and hands it over in a pipe. It ends
/// with this object at the latest.
class ReadingChild final {
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

    enum class Progress {
        /// There may be more.
        underWay,
        /// Everything has been handed over.
        done,
        /// It is more than the maximal size, or the child has failed.
        failed,
    };

    /// Starts a child, and returns when it has passed the locks. None when that can not be before the deadline.
    [[nodiscard]] static std::optional<ReadingChild> tryStart(const Work& work, qsizetype maximumSize,
                                                              Clock::time_point deadline);
    ~ReadingChild();
    ReadingChild(ReadingChild&& other) noexcept;
    ReadingChild(const ReadingChild&) = delete;
    ReadingChild& operator=(ReadingChild&& other) noexcept;
    ReadingChild& operator=(const ReadingChild&) = delete;

    /// Can be read when the child hands something over, and at its end.
    [[nodiscard]] int pipe() const { return m_pipe.get(); }

    /// Takes what there is, and waits if there is nothing.
    [[nodiscard]] Progress take();

    /// What the child has handed over so far.
    [[nodiscard]] QByteArray bytes() const { return m_bytes; }

    /// Whether it has handed over nothing so far.
    [[nodiscard]] bool isSilent() const { return m_bytes.isEmpty(); }

private:
    ReadingChild(pid_t id, FileDescriptor pipe, qsizetype maximumSize);

    [[nodiscard]] static std::optional<ReadingChild> fork(const Work& work, qsizetype maximumSize);
    [[nodiscard]] bool waitForEnd();

    pid_t m_id;
    FileDescriptor m_pipe;
    qsizetype m_maximumSize;
    QByteArray m_bytes;
};

/// Waits until one of the pipes can be read, and says which, counted from 0; none when none can before the deadline.
[[nodiscard]] std::optional<std::size_t> waitForAny(const std::vector<int>& pipes,
                                                    ReadingChild::Clock::time_point deadline);

} // namespace nookle
