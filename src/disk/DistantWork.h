#pragma once

#include "MainQueue.h"

#include <QByteArray>

#include <functional>
#include <map>
#include <memory>

namespace nookle {

class ReturnPath;

/// Does what may never end, because a file system does not answer: one thing at a time for each mount, on a thread
/// that nobody waits for. So a mount that is silent costs one thread, and holds up nothing of another mount. Main
/// thread only.
class DistantWork final {
public:
    /// Runs on another thread, and must own all that it needs. Returns what is to be done on the main thread then.
    using Work = std::function<MainQueue::Work()>;

    explicit DistantWork(MainQueue& queue);
    /// Waits for nothing. What has not begun is dropped.
    ~DistantWork();
    DistantWork(const DistantWork&) = delete;
    DistantWork& operator=(const DistantWork&) = delete;

    /// Does `work` once all that was asked before for `mountPoint` is done.
    void run(const QByteArray& mountPoint, Work work);

private:
    class Lane;

    std::shared_ptr<ReturnPath> m_return;
    std::map<QByteArray, std::shared_ptr<Lane>> m_lanes;
};

} // namespace nookle
