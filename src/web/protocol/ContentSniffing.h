#pragma once

#include <QByteArray>

#include <optional>

namespace nookle {

/// Whether the Content-Type is that of a web page. None when it is empty.
[[nodiscard]] std::optional<bool> isPageType(const QByteArray& contentType);

/// The number of bytes that is always enough for `looksLikePage`.
inline constexpr qsizetype sniffedBytes = 512;

/// Whether a document that begins with `bytes` seems to be a web page.
[[nodiscard]] bool looksLikePage(const QByteArray& bytes);

/// Whether `bytes` begin like an image in a format that icons have.
[[nodiscard]] bool looksLikeIcon(const QByteArray& bytes);

} // namespace nookle
