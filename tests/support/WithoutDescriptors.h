#pragma once

#include <sys/resource.h>
#include <unistd.h>

namespace nookle {

/// While it lives, this process gets no new descriptor. Those that it has go on working.
class WithoutDescriptors final {
public:
    WithoutDescriptors()
    {
        // The lowest number that is free.
        const int next = ::dup(STDERR_FILENO);
        ::close(next);
        ::getrlimit(RLIMIT_NOFILE, &m_before);
        const rlimit none{ static_cast<rlim_t>(next), m_before.rlim_max };
        ::setrlimit(RLIMIT_NOFILE, &none);
    }
    ~WithoutDescriptors() { ::setrlimit(RLIMIT_NOFILE, &m_before); }
    WithoutDescriptors(const WithoutDescriptors&) = delete;
    WithoutDescriptors& operator=(const WithoutDescriptors&) = delete;

private:
    rlimit m_before{};
};

} // namespace nookle
