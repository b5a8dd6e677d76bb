#pragma once

#include "Thumbnails.h"

#include <memory>

namespace nookle {

class MainQueue;
class Mounts;

/// Has thumbnails made of the files that answer at once when they are looked at. Others have none: opening them,
/// reading them and even closing them may never end. Main thread only.
class LocalThumbnails final : public Thumbnails {
public:
    /// `thumbnails` makes them. It and `queue` must outlive this object.
    LocalThumbnails(Thumbnails& thumbnails, std::shared_ptr<Mounts> mounts, MainQueue& queue);

    std::unique_ptr<Cancellable> request(const QUrl& file, double size, double scale, Completion completion) override;

private:
    Thumbnails& m_thumbnails;
    std::shared_ptr<Mounts> m_mounts;
    MainQueue& m_queue;
};

} // namespace nookle
