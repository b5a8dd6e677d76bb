#pragma once

#include <functional>
#include <memory>

namespace nookle {

/// Work that runs once, later. Destroying it before it ran cancels it; destroying it from within its own work is safe.
class DelayedTask {
public:
    virtual ~DelayedTask() = default;
};

/// Work that runs again and again. Destroying it stops it, also from within its own work.
class RepeatingTimer {
public:
    virtual ~RepeatingTimer() = default;
};

/// The main thread's clock and queue. All work runs on the main thread, never inside the call that asked for it.
class MainQueue {
public:
    using Work = std::function<void()>;

    virtual ~MainQueue() = default;

    /// Runs `work` once, `seconds` from now, as long as the returned task lives. Main thread only.
    [[nodiscard]] virtual std::unique_ptr<DelayedTask> after(double seconds, Work work) = 0;

    /// Runs `work` every `seconds`, as long as the returned timer lives. Main thread only.
    [[nodiscard]] virtual std::unique_ptr<RepeatingTimer> every(double seconds, Work work) = 0;

    /// Runs `work` on the main thread as soon as it is free. May be called from any thread.
    virtual void post(Work work) = 0;
};

} // namespace nookle
