#pragma once

#include "MainQueue.h"

#include <QObject>

namespace nookle {

/// The event loop of the main thread, which must create this object. Must outlive every thread that posts to it. Work
/// that has not run when this object is destroyed is dropped.
class QtMainQueue final : public MainQueue {
public:
    std::unique_ptr<Cancellable> after(double seconds, Work work) override;
    std::unique_ptr<Cancellable> every(double seconds, Work work) override;
    void post(Work work) override;

private:
    QObject m_context;
};

} // namespace nookle
