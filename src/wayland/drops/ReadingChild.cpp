#include "ReadingChild.h"

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

using Clock = ReadingChild::Clock;

/// What a child writes first, when no lock holds it up.
inline constexpr char mark = '+';
/// How long the first child may take for that. Each next one may take twice as long, should the machine be that busy.
inline constexpr std::chrono::milliseconds timeToPassLocks{ 150 };

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

[[nodiscard]] ssize_t readSome(int pipe, char* place, std::size_t most)
{
    ssize_t size = -1;
    do {
        size = ::read(pipe, place, most);
    } while (size < 0 && errno == EINTR);
    return size;
}

[[nodiscard]] bool readMark(int pipe)
{
    char first = 0;
    return readSome(pipe, &first, 1) == 1 && first == mark;
}

// Nothing of the parent's may run at the end: neither destructors nor what libraries have left for the exit.
[[noreturn]] void workInChild(const ReadingChild::Work& work, qsizetype maximumSize, int pipe)
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

} // namespace

std::optional<std::size_t> waitForAny(const std::vector<int>& pipes, Clock::time_point deadline)
{
    std::vector<pollfd> ends;
    for (const int pipe : pipes)
        ends.push_back({ pipe, POLLIN, 0 });
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
        if (left <= 0)
            return std::nullopt;
        const int ready =
            ::poll(ends.data(), ends.size(), static_cast<int>(std::min<long>(left, std::numeric_limits<int>::max())));
        if (ready < 0 && errno != EINTR)
            return std::nullopt;
        const auto first = std::find_if(ends.begin(), ends.end(), [](const pollfd& end) { return end.revents != 0; });
        if (ready > 0 && first != ends.end())
            return static_cast<std::size_t>(first - ends.begin());
    }
}

ReadingChild::ReadingChild(pid_t id, FileDescriptor pipe, qsizetype maximumSize)
    : m_id(id)
    , m_pipe(std::move(pipe))
    , m_maximumSize(maximumSize)
{
}

ReadingChild::~ReadingChild()
{
    if (m_id > 0 && ::kill(m_id, SIGKILL) == 0)
        static_cast<void>(waitForEnd());
}

ReadingChild& ReadingChild::operator=(ReadingChild&& other) noexcept
{
    std::swap(m_id, other.m_id);
    std::swap(m_maximumSize, other.m_maximumSize);
    m_pipe = std::move(other.m_pipe);
    m_bytes.swap(other.m_bytes);
    return *this;
}

ReadingChild::ReadingChild(ReadingChild&& other) noexcept
    : m_id(std::exchange(other.m_id, -1))
    , m_pipe(std::move(other.m_pipe))
    , m_maximumSize(other.m_maximumSize)
    , m_bytes(std::move(other.m_bytes))
{
}

std::optional<ReadingChild> ReadingChild::fork(const Work& work, qsizetype maximumSize)
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
    return ReadingChild(id, std::move(from), maximumSize);
}

std::optional<ReadingChild> ReadingChild::tryStart(const Work& work, qsizetype maximumSize, Clock::time_point deadline)
{
    for (auto patience = timeToPassLocks; Clock::now() < deadline; patience *= 2) {
        auto child = fork(work, maximumSize);
        if (!child)
            return std::nullopt;
        if (waitForAny({ child->pipe() }, std::min(deadline, Clock::now() + patience)))
            return readMark(child->pipe()) ? std::move(child) : std::nullopt;
    }
    return std::nullopt;
}

ReadingChild::Progress ReadingChild::take()
{
    constexpr std::size_t chunkSize = 65536;
    std::array<char, chunkSize> chunk{};
    const ssize_t size = readSome(m_pipe.get(), chunk.data(), chunk.size());
    if (size < 0 || m_bytes.size() + size > m_maximumSize)
        return Progress::failed;
    if (size == 0)
        return waitForEnd() ? Progress::done : Progress::failed;
    m_bytes.append(chunk.data(), size);
    return Progress::underWay;
}

bool ReadingChild::waitForEnd()
{
    int status = 0;
    pid_t ended = -1;
    do {
        ended = ::waitpid(m_id, &status, 0);
    } while (ended < 0 && errno == EINTR);
    m_id = -1;
    return ended > 0 && WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
}

} // namespace nookle
