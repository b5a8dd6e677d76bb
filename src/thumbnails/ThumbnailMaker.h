#pragma once

#include "Cancellable.h"
#include "RegularFile.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace nookle {

/// Something outside this program that makes thumbnails of files. Main thread only.
class ThumbnailMaker {
public:
    struct Wanted {
        QByteArray path;
        /// The address by which all programs know the file.
        QByteArray uri;
        QString mimeType;
        /// The side of the thumbnail, one of those that `ThumbnailCache` has.
        int side = 0;
    };

    struct Made {
        /// An image that nobody vouches for; none when the thumbnail has been put where all programs share theirs.
        std::optional<RegularFile> image;
    };

    using Completion = std::function<void(std::optional<Made>)>;

    virtual ~ThumbnailMaker() = default;

    /// Makes a thumbnail. `completion` is called once, on the main thread and after this call has returned, with
    /// nothing when there is none, and may destroy what this call returned. Null when this maker has no way to make it.
    [[nodiscard]] virtual std::unique_ptr<Cancellable> make(const Wanted& wanted, Completion completion) = 0;
};

} // namespace nookle
