#pragma once

#include <QByteArray>
#include <QUrl>

#include <optional>

namespace nookle {

/// The bytes that a "data:" address carries. None when it is none or is broken.
[[nodiscard]] std::optional<QByteArray> bytesOfDataUrl(const QUrl& url);

} // namespace nookle
