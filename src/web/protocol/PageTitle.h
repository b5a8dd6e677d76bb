#pragma once

#include <QString>

#include <optional>

namespace nookle {

/// The longest title that a page can have, in UTF-16 units.
inline constexpr qsizetype maximumTitleLength = 1000;

/// A page's title as it can be shown in one line: white space collapsed; no control characters, and none that turn the
/// direction of the text around; cut where it is overlong. None when nothing is left.
[[nodiscard]] std::optional<QString> presentableTitle(const QString& text);

} // namespace nookle
