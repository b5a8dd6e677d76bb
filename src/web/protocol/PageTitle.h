#pragma once

#include <QString>

#include <optional>

namespace nookle {

/// The maximum length of a page's title, in UTF-16 units.
inline constexpr qsizetype maximumTitleLength = 1000;

/// A page's title as one line for display. White space is collapsed. Control characters and characters that override
/// the writing direction are removed. An overlong title is cut. None when nothing is left.
[[nodiscard]] std::optional<QString> presentableTitle(const QString& text);

} // namespace nookle
