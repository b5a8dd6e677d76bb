#pragma once

#include <QByteArray>

#include <optional>

namespace nookle {

/// Whether the Content-Type says that this is a web page. None when it says nothing.
[[nodiscard]] std::optional<bool> isPageType(const QByteArray& contentType);

/// How many bytes `looksLikePage` needs at most.
inline constexpr qsizetype sniffedBytes = 512;

/// Whether what begins with `bytes` is a web page.
[[nodiscard]] bool looksLikePage(const QByteArray& bytes);

/// Whether `bytes` are an image in one of the formats of icons.
[[nodiscard]] bool looksLikeIcon(const QByteArray& bytes);

} // namespace nookle
