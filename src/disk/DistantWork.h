#pragma once

#include "MainQueue.h"

#include <QByteArray>

#include <functional>
#include <map>
#include <memory>

namespace nookle {

class ReturnPath;

/// Runs work that may hang because a file system does not answer. Each mount has one thread, which does its work in
/// order; nobody waits for the thread. So a mount that hangs costs one thread, and does not delay the work of other
/// mounts. Main thread only.
class DistantWork final {
public:
    /// Runs on another thread, and must own all data that it needs. Returns a function that is then called on the main
    /// thread.
    using Work = std::function<MainQueue::Work()>;

    explicit DistantWork(MainQueue& queue);
    /// Does not wait for running work. Work that has not begun is dropped.
    ~DistantWork();
    DistantWork(const DistantWork&) = delete;
    DistantWork& operator=(const DistantWork&) = delete;

    /// Queues `work` behind all earlier work for `mountPoint`.
    void run(const QByteArray& mountPoint, Work work);

private:
    class Lane;

    std::shared_ptr<ReturnPath> m_return;
    std::map<QByteArray, std::shared_ptr<Lane>> m_lanes;
};

} // namespace nookle
