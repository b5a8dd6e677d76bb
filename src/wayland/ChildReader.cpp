#include "ChildReader.h"

#include "FileDescriptor.h"

#include <QFile>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <limits>
#include <utility>

namespace nookle {

namespace {

using Clock = ChildReader::Clock;

/// What a child writes first, when no lock holds it up.
inline constexpr char mark = '+';
/// How long the first child may take for that. Each next one may take twice as long, should the machine be that busy.
inline constexpr std::chrono::milliseconds timeToPassLocks{ 150 };

/// A child process, which ends with this object at the latest.
class Child final {
public:
    explicit Child(pid_t id)
        : m_id(id)
    {
    }
    ~Child()
    {
        if (m_id > 0 && ::kill(m_id, SIGKILL) == 0)
            static_cast<void>(waitForEnd());
    }
    Child(Child&& other) noexcept
        : m_id(std::exchange(other.m_id, -1))
    {
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    /// Whether it has ended as it should.
    [[nodiscard]] bool waitForEnd()
    {
        int status = 0;
        pid_t ended = -1;
        do {
            ended = ::waitpid(m_id, &status, 0);
        } while (ended < 0 && errno == EINTR);
        m_id = -1;
        return ended > 0 && WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
    }

private:
    pid_t m_id;
};

/// A child at work, and the pipe that it writes to.
struct Worker {
    Child child;
    FileDescriptor pipe;
};

/// How much memory this process may use, in bytes, counted from what it has now.
void limitGrowth(qsizetype size)
{
    QFile file(QStringLiteral("/proc/self/statm"));
    const QByteArray pages = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    const auto present = static_cast<rlim_t>(pages.split(' ').constFirst().toULongLong() * ::sysconf(_SC_PAGESIZE));
    const rlim_t most = present + static_cast<rlim_t>(size);
    const rlimit memory{ most, most };
    ::setrlimit(RLIMIT_AS, &memory);
    const rlimit core{ 0, 0 };
    ::setrlimit(RLIMIT_CORE, &core);
}

[[nodiscard]] bool writeAll(int pipe, const QByteArray& bytes)
{
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t size = ::write(pipe, bytes.constData() + done, static_cast<std::size_t>(bytes.size() - done));
        if (size < 0 && errno != EINTR)
            return false;
        done += std::max<ssize_t>(size, 0);
    }
    return true;
}

// Nothing of the parent's may run at the end: neither destructors nor what libraries have left for the exit.
[[noreturn]] void workInChild(const ChildReader::Work& work, qsizetype maximumSize, int pipe)
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    work.passLocks();
    if (!writeAll(pipe, QByteArray(1, mark)))
        ::_exit(EXIT_FAILURE);
    // A growing array needs room for itself and for its copy.
    constexpr int copies = 3;
    limitGrowth(copies * maximumSize);
    try {
        ::_exit(writeAll(pipe, work.read()) ? EXIT_SUCCESS : EXIT_FAILURE);
    } catch (...) {
        ::_exit(EXIT_FAILURE);
    }
}

/// Whether there is something to read, or the end, before the deadline.
[[nodiscard]] bool waitForMore(int pipe, Clock::time_point deadline)
{
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
        if (left <= 0)
            return false;
        pollfd end{ pipe, POLLIN, 0 };
        const int ready = ::poll(&end, 1, static_cast<int>(std::min<long>(left, std::numeric_limits<int>::max())));
        if (ready > 0)
            return true;
        if (ready < 0 && errno != EINTR)
            return false;
    }
}

/// Everything until the pipe is closed.
[[nodiscard]] std::optional<QByteArray> readPipe(int pipe, qsizetype maximumSize, Clock::time_point deadline)
{
    constexpr std::size_t chunkSize = 65536;
    std::array<char, chunkSize> chunk{};
    QByteArray whole;
    while (waitForMore(pipe, deadline)) {
        const ssize_t size = ::read(pipe, chunk.data(), chunk.size());
        if (size < 0 && errno == EINTR)
            continue;
        if (size < 0 || whole.size() + size > maximumSize)
            return std::nullopt;
        if (size == 0)
            return whole;
        whole.append(chunk.data(), size);
    }
    return std::nullopt;
}

[[nodiscard]] std::optional<Worker> startWorker(const ChildReader::Work& work, qsizetype maximumSize)
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        return std::nullopt;
    FileDescriptor from(ends[0]);
    const FileDescriptor into(ends[1]);
    const pid_t id = ::fork();
    if (id == 0)
        workInChild(work, maximumSize, into.get());
    if (id < 0)
        return std::nullopt;
    return Worker{ Child(id), std::move(from) };
}

[[nodiscard]] bool readMark(int pipe)
{
    char first = 0;
    return ::read(pipe, &first, 1) == 1 && first == mark;
}

} // namespace

std::optional<QByteArray> ChildReader::run(const Work& work, qsizetype maximumSize, Clock::time_point deadline)
{
    for (auto patience = timeToPassLocks; Clock::now() < deadline; patience *= 2) {
        auto worker = startWorker(work, maximumSize);
        if (!worker)
            return std::nullopt;
        if (!waitForMore(worker->pipe.get(), std::min(deadline, Clock::now() + patience)))
            continue;
        if (!readMark(worker->pipe.get()))
            return std::nullopt;
        auto bytes = readPipe(worker->pipe.get(), maximumSize, deadline);
        return bytes && worker->child.waitForEnd() ? std::move(bytes) : std::nullopt;
    }
    return std::nullopt;
}

} // namespace nookle
