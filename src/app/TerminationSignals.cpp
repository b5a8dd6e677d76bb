#include "TerminationSignals.h"

#include <atomic>
#include <csignal>
#include <cstdint>
#include <utility>

#include <sys/eventfd.h>
#include <unistd.h>

namespace nookle {

namespace {

inline constexpr int handledSignals[] = { SIGTERM, SIGINT, SIGHUP };

// Global, because a signal handler has no other way to reach it; the handler may do little more than call write().
std::atomic<int> wakeUpDescriptor = -1;

void wakeUp(int /*signal*/)
{
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = write(wakeUpDescriptor.load(), &one, sizeof(one));
}

void handleSignals(void (*handler)(int))
{
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : handledSignals)
        sigaction(signal, &action, nullptr);
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> onTerminate)
    : m_onTerminate(std::move(onTerminate))
    , m_descriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
    , m_notifier(std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Read))
{
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        std::uint64_t count = 0;
        if (read(m_descriptor, &count, sizeof(count)) == sizeof(count))
            m_onTerminate();
    });
    wakeUpDescriptor = m_descriptor;
    handleSignals(wakeUp);
}

TerminationSignals::~TerminationSignals()
{
    handleSignals(SIG_DFL);
    wakeUpDescriptor = -1;
    m_notifier.reset();
    close(m_descriptor);
}

} // namespace nookle
