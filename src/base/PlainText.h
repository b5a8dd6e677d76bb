#pragma once

#include <QString>

#include <optional>

namespace nookle {

// Titles, names and texts come from untrusted sources. These functions clean every title before it is stored and every
// text before it is shown.

/// The maximum length of a stored title and of a shown text, in UTF-16 units.
inline constexpr qsizetype longestShownText = 300;

/// The text on one line. Line breaks and tabs become spaces. All other control characters, characters that change the
/// writing direction, and unpaired surrogates are removed.
[[nodiscard]] QString withoutControls(const QString& text);

/// An untrusted title as it is stored: without control characters, and cut after `longestShownText` units. The cut
/// never splits a character, nor a letter from its accents. None without a title, and when the cleaning leaves only
/// white space.
[[nodiscard]] std::optional<QString> cleanedTitle(const std::optional<QString>& title);

/// The text as it is shown: without control characters, and at most `longestShownText` units long. A longer text is cut
/// in the middle, so that its start and its end stay visible. The time does not grow with the length of the text.
[[nodiscard]] QString shownText(const QString& text);

/// The title of a menu entry: each "&" is doubled, because the toolkit takes a single one for the mark of a shortcut
/// key.
[[nodiscard]] QString menuTitle(const QString& title);

} // namespace nookle
