#pragma once

#include <QString>

#include <optional>

namespace nookle {

// Titles, names and texts come from anywhere. What is kept of a title and what is shown of anything passes through
// here.

/// The longest title that is kept, and the longest text that is shown in one piece, in UTF-16 units.
inline constexpr qsizetype longestShownText = 300;

/// The text on one line: control characters that break or space a line become spaces; all others, those that turn the
/// direction of what follows, and halves of characters are left out.
[[nodiscard]] QString withoutControls(const QString& text);

/// A title from outside as it is kept: without control characters, and its first `longestShownText` units. No character
/// is cut apart, nor a letter from its accents. None when there is no title, or when all of it was control characters.
[[nodiscard]] std::optional<QString> cleanedTitle(const std::optional<QString>& title);

/// The text as it is shown: without control characters, and cut in the middle to `longestShownText` units, so that its
/// start and its end stay visible. Takes no longer for the longest text.
[[nodiscard]] QString shownText(const QString& text);

/// The title of a menu's entry: a sign that the toolkit would take for the mark of a key is doubled.
[[nodiscard]] QString menuTitle(const QString& title);

} // namespace nookle
