#pragma once

#include "Cancellable.h"

#include <QByteArray>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>
#include <variant>

namespace nookle {

/// Converts untrusted images to PNG. A separate process decodes them, with limits on time and memory, so that a
/// malicious or broken image does no harm. Main thread only.
class ImageConverter {
public:
    /// An image file, or the bytes of one.
    using Source = std::variant<QUrl, QByteArray>;
    using Completion = std::function<void(std::optional<QByteArray> png)>;

    virtual ~ImageConverter() = default;

    /// Converts the first frame of `source`. Refuses images with a side of more than `maximumSide` pixels. `completion`
    /// is called once, on the main thread and after this call has returned; none means that no image could be read. The
    /// completion may destroy the conversion.
    [[nodiscard]] virtual std::unique_ptr<Cancellable> convertToPng(Source source, int maximumSide,
                                                                    Completion completion) = 0;
};

} // namespace nookle
