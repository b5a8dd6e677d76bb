#pragma once

#include "MainQueue.h"

#include <QObject>

namespace nookle {

/// The event loop of the thread that makes it, which is the main thread. Must outlive every thread that posts to it;
/// what was posted and did not run before its end never does.
class QtMainQueue final : public MainQueue {
public:
    std::unique_ptr<Cancellable> after(double seconds, Work work) override;
    std::unique_ptr<Cancellable> every(double seconds, Work work) override;
    void post(Work work) override;

private:
    QObject m_context;
};

} // namespace nookle
