#include "ProcessLimits.h"

#include <QTest>

#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

using namespace nookle;

namespace {

/// What `work` says in a process of its own, which keeps the limits to itself.
template <typename Work> [[nodiscard]] bool isTrueInAChild(Work work)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(work() ? 0 : 1);
    int status = 0;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

[[nodiscard]] bool canReserve(std::size_t bytes)
{
    return ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0) != MAP_FAILED;
}

[[nodiscard]] bool canMakeSocket(int family, int type)
{
    return ::socket(family, type, 0) >= 0;
}

} // namespace

class ProcessLimitsTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void internetSocketsAreAllowedAndOthersAreNot();
    void memoryIsLimitedForGood();
    void filesAreLimited();
    void processorTimeIsLimited();
};

void ProcessLimitsTest::internetSocketsAreAllowedAndOthersAreNot()
{
    QVERIFY(isTrueInAChild([] { return canMakeSocket(AF_UNIX, SOCK_STREAM); }));
    QVERIFY(isTrueInAChild([] {
        return allowInternetSocketsOnly() && !canMakeSocket(AF_UNIX, SOCK_STREAM) && errno == EACCES
            && !canMakeSocket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC) && canMakeSocket(AF_INET, SOCK_STREAM)
            && canMakeSocket(AF_INET, SOCK_DGRAM) && canMakeSocket(AF_INET6, SOCK_STREAM)
            && canMakeSocket(AF_NETLINK, SOCK_RAW) && !canMakeSocket(AF_BLUETOOTH, SOCK_RAW) && errno == EACCES
            && !canMakeSocket(AF_VSOCK, SOCK_STREAM) && errno == EACCES && !canMakeSocket(AF_PACKET, SOCK_DGRAM)
            && errno == EACCES;
    }));
}

void ProcessLimitsTest::memoryIsLimitedForGood()
{
#if defined(__SANITIZE_ADDRESS__)
    QSKIP("the address sanitizer needs more");
#endif
    QVERIFY(isTrueInAChild([] {
        limitMemory(usualMemory);
        limitMemory(4 * usualMemory);
        return !canReserve(usualMemory);
    }));
}

void ProcessLimitsTest::filesAreLimited()
{
    QVERIFY(isTrueInAChild([] {
        limitProcess();
        int opened = 0;
        while (opened < 1000 && ::dup(STDERR_FILENO) >= 0)
            ++opened;
        return opened < 64;
    }));
}

void ProcessLimitsTest::processorTimeIsLimited()
{
    const pid_t child = ::fork();
    if (child == 0) {
        limitProcessorTime(1);
        for (volatile bool goesOn = true; goesOn;) {}
    }
    int status = 0;
    QCOMPARE(::waitpid(child, &status, 0), child);
    QVERIFY(WIFSIGNALED(status));
}

QTEST_GUILESS_MAIN(ProcessLimitsTest)
#include "ProcessLimitsTest.moc"
