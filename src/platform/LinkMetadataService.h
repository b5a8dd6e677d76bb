#pragma once

#include "Cancellable.h"

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

namespace nookle {

/// What a web page says about itself.
struct LinkMetadata {
    std::optional<QString> title;
    /// Loads the page's icon and calls back once, on the main thread, with PNG bytes or nothing. Empty when the page
    /// has no icon. Works on after the request is gone.
    std::function<void(std::function<void(std::optional<QByteArray> png)>)> loadIcon;
};

/// Looks up titles and icons of web pages. Main thread only.
class LinkMetadataService {
public:
    using Completion = std::function<void(std::optional<LinkMetadata>)>;

    virtual ~LinkMetadataService() = default;

    /// Looks `url` up. `completion` is called once, on the main thread and after this call has returned; nothing means
    /// that the lookup failed. The request may be destroyed from within its completion.
    [[nodiscard]] virtual std::unique_ptr<Cancellable> start(const QUrl& url, Completion completion) = 0;
};

} // namespace nookle
