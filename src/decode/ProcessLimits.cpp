#include "ProcessLimits.h"

#include <malloc.h>
#include <sys/prctl.h>
#include <sys/resource.h>

#include <csignal>

namespace nookle {

namespace {

inline constexpr rlim_t mostMemory = rlim_t(512) << 20;
inline constexpr rlim_t mostDescriptors = 64;

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
    if (canLimitMemory)
        limit(RLIMIT_AS, mostMemory);
    limit(RLIMIT_NOFILE, mostDescriptors);
    limit(RLIMIT_FSIZE, 0);
    limit(RLIMIT_CORE, 0);
    // A library that writes to a cache of its own is told that it cannot, instead of ending the process.
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
}

} // namespace nookle
