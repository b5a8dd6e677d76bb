#pragma once

#include "Cancellable.h"
#include "Picture.h"

#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

namespace nookle {

/// Makes small pictures of the content of files. Another process decodes the files. Main thread only.
class ThumbnailGenerator {
public:
    using Completion = std::function<void(std::optional<Picture>)>;

    virtual ~ThumbnailGenerator() = default;

    /// Requests a picture of `file` that fits into a square of `size` points with `scale` pixels a point. The picture
    /// keeps its aspect ratio and is never enlarged. `completion` is called once, on the main thread and after this
    /// call has returned; none means that there is no thumbnail. The completion may destroy the request.
    [[nodiscard]] virtual std::unique_ptr<Cancellable> request(const QUrl& file, double size, double scale,
                                                               Completion completion) = 0;
};

} // namespace nookle
