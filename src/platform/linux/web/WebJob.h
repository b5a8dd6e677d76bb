#pragma once

namespace nookle {

/// Work that waits for its turn. Destroying it drops it, whether it was started or not.
class WebJob {
public:
    virtual ~WebJob() = default;

    /// Begins. Its end is never told inside this call.
    virtual void start() = 0;
};

} // namespace nookle
