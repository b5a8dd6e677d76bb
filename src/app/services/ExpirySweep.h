#pragma once

#include <memory>

namespace nookle {

class AppSettings;
class MainQueue;
class Cancellable;
class ShelfStore;

/// Removes expired items from the shelf, at once and then every minute as long as this object lives. Reads the user's
/// setting each time. The constructor's arguments must outlive it. Main thread only.
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
