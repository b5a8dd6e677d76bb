#pragma once

#include "Lifetime.h"
#include "ThumbnailCache.h"
#include "ThumbnailJob.h"
#include "ThumbnailMaker.h"
#include "ThumbnailGenerator.h"

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <vector>

namespace nookle {

class ImageDecoder;
class MainQueue;

/// Uses the thumbnails that all programs of the desktop share. A file without one is decoded. A file that cannot be
/// decoded is given to the thumbnail makers. The latest request is served first, because that file has just been
/// scrolled into view; older ones may be out of view already.
class LinuxThumbnailGenerator final : public ThumbnailGenerator {
public:
    /// The maximum number of files that are decoded at a time, and that the makers work on at a time. Makers take
    /// longer.
    inline static constexpr std::size_t mostDecoding = 2;
    inline static constexpr std::size_t mostMaking = 2;

    /// `makers` are tried in their order. `queue` and `decoder` must outlive this object.
    LinuxThumbnailGenerator(MainQueue& queue, ImageDecoder& decoder, ThumbnailCache cache,
                            std::vector<std::unique_ptr<ThumbnailMaker>> makers);
    ~LinuxThumbnailGenerator() override;
    LinuxThumbnailGenerator(const LinuxThumbnailGenerator&) = delete;
    LinuxThumbnailGenerator& operator=(const LinuxThumbnailGenerator&) = delete;

    std::unique_ptr<Cancellable> request(const QUrl& file, double size, double scale, Completion completion) override;

private:
    using Id = std::uint64_t;

    struct Entry {
        std::unique_ptr<ThumbnailJob> job;
        Completion completion;
    };

    void schedulePump();
    void pump();
    void decode(Id id);
    void askMakers(Id id);
    void finish(Id id, std::optional<Picture> picture);
    void drop(Id id);

    MainQueue& m_queue;
    ImageDecoder& m_decoder;
    ThumbnailCache m_cache;
    std::vector<std::unique_ptr<ThumbnailMaker>> m_makers;
    Id m_lastId = 0;
    std::map<Id, Entry> m_entries;
    /// Sorted by age, since ids only grow.
    std::set<Id> m_waiting;
    std::set<Id> m_decoding;
    std::set<Id> m_waitingForMakers;
    std::set<Id> m_making;
    bool m_isPumpScheduled = false;
    Lifetime m_lifetime;
};

} // namespace nookle
