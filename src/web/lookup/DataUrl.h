#pragma once

#include <QByteArray>
#include <QUrl>

#include <optional>

namespace nookle {

/// The bytes in a "data:" address. None for another address or a malformed one.
[[nodiscard]] std::optional<QByteArray> bytesOfDataUrl(const QUrl& url);

} // namespace nookle
