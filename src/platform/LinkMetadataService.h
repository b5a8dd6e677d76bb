#pragma once

#include "Cancellable.h"

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

namespace nookle {

/// The title and icon that a web page declares.
struct LinkMetadata {
    std::optional<QString> title;
    /// Loads the page's icon and calls back once, on the main thread, with PNG bytes or none. An empty function when
    /// the page has no icon. May be called after the request was destroyed.
    std::function<void(std::function<void(std::optional<QByteArray> png)>)> loadIcon;
};

/// Looks up titles and icons of web pages. Main thread only.
class LinkMetadataService {
public:
    using Completion = std::function<void(std::optional<LinkMetadata>)>;

    virtual ~LinkMetadataService() = default;

    /// Looks up the page at `url`. `completion` is called once, on the main thread and after this call has returned;
    /// none means that the lookup failed. The completion may destroy the request.
    [[nodiscard]] virtual std::unique_ptr<Cancellable> start(const QUrl& url, Completion completion) = 0;
};

} // namespace nookle
