#pragma once

#include <memory>

namespace nookle {

class AppSettings;
class MainQueue;
class Cancellable;
class ShelfStore;

/// Removes what has been on the shelf for longer than the user wants, now and every minute as long as this lives. The
/// setting is read each time. What it is given must outlive it. Main thread only.
class ExpirySweep final {
public:
    ExpirySweep(const AppSettings& settings, ShelfStore& store, MainQueue& queue);
    ~ExpirySweep();
    ExpirySweep(const ExpirySweep&) = delete;
    ExpirySweep& operator=(const ExpirySweep&) = delete;

private:
    void sweep();

    const AppSettings& m_settings;
    ShelfStore& m_store;
    std::unique_ptr<Cancellable> m_timer;
};

} // namespace nookle
