#pragma once

#include "Cancellable.h"

#include <functional>
#include <memory>

namespace nookle {

/// The main thread's clock and queue. All work runs on the main thread, never inside the call that asked for it.
class MainQueue {
public:
    using Work = std::function<void()>;

    virtual ~MainQueue() = default;

    /// Runs `work` once, `seconds` from now, as long as the returned task lives. Main thread only.
    [[nodiscard]] virtual std::unique_ptr<Cancellable> after(double seconds, Work work) = 0;

    /// Runs `work` every `seconds`, as long as the returned timer lives. Main thread only.
    [[nodiscard]] virtual std::unique_ptr<Cancellable> every(double seconds, Work work) = 0;

    /// Runs `work` on the main thread as soon as it is free. May be called from any thread.
    virtual void post(Work work) = 0;
};

} // namespace nookle
