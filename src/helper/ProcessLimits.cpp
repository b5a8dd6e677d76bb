#include "ProcessLimits.h"

#include <malloc.h>
#include <seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>

#include <cerrno>
#include <csignal>
#include <cstdint>

namespace nookle {

namespace {

inline constexpr rlim_t mostDescriptors = 64;

/// The resolver asks the kernel through it which addresses this machine has.
inline constexpr unsigned lastFamily = AF_NETLINK;

// The address sanitizer maps terabytes for its own use.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool canLimitMemory = false;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
inline constexpr bool canLimitMemory = false;
#else
inline constexpr bool canLimitMemory = true;
#endif
#else
inline constexpr bool canLimitMemory = true;
#endif

void limit(__rlimit_resource resource, rlim_t most)
{
    const rlimit value{ most, most };
    ::setrlimit(resource, &value);
}

} // namespace

void limitProcess()
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    // Each arena reserves 64 MB of address space for a thread that hardly uses any.
    ::mallopt(M_ARENA_MAX, 1);
    limit(RLIMIT_NOFILE, mostDescriptors);
    limit(RLIMIT_FSIZE, 0);
    limit(RLIMIT_CORE, 0);
    // A library that tries to write a cache file gets an error, instead of a signal that ends the process.
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
}

void limitMemory(std::size_t bytes)
{
    if (canLimitMemory)
        limit(RLIMIT_AS, bytes);
}

void limitProcessorTime(unsigned seconds)
{
    limit(RLIMIT_CPU, seconds);
}

bool allowInternetSocketsOnly()
{
    const scmp_filter_ctx filter = ::seccomp_init(SCMP_ACT_ALLOW);
    if (filter == nullptr)
        return false;
    const std::uint32_t refusal = SCMP_ACT_ERRNO(EACCES);
    // With io_uring, a process could make sockets that the filter does not see.
    bool isDone = ::seccomp_rule_add(filter, refusal, SCMP_SYS(io_uring_setup), 0) == 0
        && ::seccomp_rule_add(filter, refusal, SCMP_SYS(socket), 1, SCMP_A0_32(SCMP_CMP_GT, lastFamily)) == 0;
    for (unsigned family = 0; family < lastFamily; ++family) {
        const bool isInternet = family == AF_INET || family == AF_INET6;
        isDone = isDone
            && (isInternet
                || ::seccomp_rule_add(filter, refusal, SCMP_SYS(socket), 1, SCMP_A0_32(SCMP_CMP_EQ, family)) == 0);
    }
    isDone = isDone && ::seccomp_load(filter) == 0;
    ::seccomp_release(filter);
    return isDone;
}

} // namespace nookle
