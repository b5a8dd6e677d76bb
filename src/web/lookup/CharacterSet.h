#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

namespace nookle {

/// The converter's name for the character set that a web page calls `label`. Labels have the same meaning as in
/// browsers. None for an unknown label.
[[nodiscard]] std::optional<QByteArray> characterSetOf(const QByteArray& label);

/// The value of the `charset` parameter of a Content-Type; empty if there is none.
[[nodiscard]] QByteArray charsetParameter(const QByteArray& contentType);

/// Decodes `bytes` with a character set that `characterSetOf` has returned. Invalid bytes become U+FFFD.
[[nodiscard]] QString decoded(const QByteArray& bytes, const QByteArray& set);

} // namespace nookle
