#pragma once

#include "Cancellable.h"
#include "Picture.h"

#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

namespace nookle {

/// Makes small pictures of what files contain. A file is never decoded in the program itself. Main thread only.
class Thumbnails {
public:
    using Completion = std::function<void(std::optional<Picture>)>;

    virtual ~Thumbnails() = default;

    /// Asks for a picture of `file` that fits into a square of `size` points at `scale` pixels a point, keeping its
    /// shape and never enlarged. `completion` is called once, on the main thread and after this call has returned;
    /// nothing means that there is no thumbnail. The request may be destroyed from within its completion.
    [[nodiscard]] virtual std::unique_ptr<Cancellable> request(const QUrl& file, double size, double scale,
                                                               Completion completion) = 0;
};

} // namespace nookle
