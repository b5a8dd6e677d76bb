#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

namespace nookle {

/// The converter's name of the character set that a web page calls `label`, as browsers understand it. None for a label
/// that nobody knows.
[[nodiscard]] std::optional<QByteArray> characterSetOf(const QByteArray& label);

/// The value of `charset` in a Content-Type, or empty.
[[nodiscard]] QByteArray charsetParameter(const QByteArray& contentType);

/// The text of `bytes`, in a set that `characterSetOf` has named. What cannot be read becomes U+FFFD.
[[nodiscard]] QString decoded(const QByteArray& bytes, const QByteArray& set);

} // namespace nookle
