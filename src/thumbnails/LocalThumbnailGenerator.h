#pragma once

#include "ThumbnailGenerator.h"

#include <memory>

namespace nookle {

class MainQueue;
class Mounts;

/// Requests thumbnails only for files on file systems that always answer. Other files get none: opening, reading and
/// even closing them may block forever. Main thread only.
class LocalThumbnailGenerator final : public ThumbnailGenerator {
public:
    /// `thumbnails` makes the thumbnails. It and `queue` must outlive this object.
    LocalThumbnailGenerator(ThumbnailGenerator& thumbnails, std::shared_ptr<Mounts> mounts, MainQueue& queue);

    std::unique_ptr<Cancellable> request(const QUrl& file, double size, double scale, Completion completion) override;

private:
    ThumbnailGenerator& m_thumbnails;
    std::shared_ptr<Mounts> m_mounts;
    MainQueue& m_queue;
};

} // namespace nookle
