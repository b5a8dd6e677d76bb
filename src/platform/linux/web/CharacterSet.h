#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace nookle {

/// The converter's name of the character set that a web page calls `label`, as browsers understand it. None for a label
/// that no browser knows.
[[nodiscard]] std::optional<QByteArray> characterSetOf(QByteArrayView label);

/// The value of `charset` in a Content-Type, or empty.
[[nodiscard]] QByteArray charsetParameter(QByteArrayView contentType);

} // namespace nookle
