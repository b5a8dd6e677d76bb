#pragma once

#include "Cancellable.h"
#include "RegularFile.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace nookle {

/// A program or service that makes thumbnails of files. Main thread only.
class ThumbnailMaker {
public:
    struct Wanted {
        QByteArray path;
        /// The file's address in the form that all programs use for thumbnails.
        QByteArray uri;
        QString mimeType;
        /// The side of the thumbnail in pixels, one of the sizes of `ThumbnailCache`.
        int side = 0;
    };

    struct Made {
        /// An untrusted image; none when the maker has saved the thumbnail in the shared folder.
        std::optional<RegularFile> image;
    };

    using Completion = std::function<void(std::optional<Made>)>;

    virtual ~ThumbnailMaker() = default;

    /// Makes a thumbnail. `completion` is called once, on the main thread and after this call has returned. It gets
    /// none when there is no thumbnail, and may destroy the returned object. Returns null, without calling
    /// `completion`, when this maker cannot handle the file.
    [[nodiscard]] virtual std::unique_ptr<Cancellable> make(const Wanted& wanted, Completion completion) = 0;
};

} // namespace nookle
