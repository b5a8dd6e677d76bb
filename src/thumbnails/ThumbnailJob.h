#pragma once

#include "DecodeAttempts.h"
#include "Picture.h"
#include "ThumbnailMaker.h"

#include <QByteArray>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace nookle {

class ImageDecoder;
class ThumbnailCache;

/// Gets one thumbnail. Destroying it cancels the running work.
class ThumbnailJob final {
public:
    struct Tools {
        ImageDecoder& decoder;
        const ThumbnailCache& cache;
        const std::vector<std::unique_ptr<ThumbnailMaker>>& makers;
    };

    /// Called once, after the call that it was passed to has returned. May destroy this object.
    using Completion = std::function<void(std::optional<Picture>)>;

    /// `side` is in pixels. The objects in `tools` must outlive this object.
    ThumbnailJob(Tools tools, QByteArray path, int side);

    /// Decodes a saved thumbnail, or else the file itself.
    void decode(Completion completion);

    /// Whether a thumbnail maker may still succeed, after `decode` has failed.
    [[nodiscard]] bool canAskMakers() const;

    /// Tries the thumbnail makers one after the other until one succeeds.
    void askMakers(Completion completion);

private:
    [[nodiscard]] std::vector<DecodeAttempts::Attempt> savedThumbnails() const;
    [[nodiscard]] DecodeRequest request(DecodeRequest::Purpose purpose) const;
    void tryAll(std::vector<DecodeAttempts::Attempt> attempts, std::function<void(std::optional<Picture>)> completion);
    void askNextMaker();
    void takeMade(std::optional<ThumbnailMaker::Made> made);
    void finish(std::optional<Picture> picture);

    Tools m_tools;
    QByteArray m_path;
    QByteArray m_uri;
    int m_side;
    bool m_isReadable = false;
    qint64 m_modificationTime = 0;
    qint64 m_fileSize = 0;
    Completion m_completion;
    std::unique_ptr<DecodeAttempts> m_attempts;
    ThumbnailMaker::Wanted m_wanted;
    std::size_t m_nextMaker = 0;
    std::unique_ptr<Cancellable> m_making;
};

} // namespace nookle
