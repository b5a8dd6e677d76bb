#pragma once

#include <QString>
#include <Qt>

#include <optional>

namespace nookle {

/// Keys for the user, in the toolkit's words, but with "Super" for what the toolkit puts first and calls "Meta". `key`
/// is the name of the key that is pressed last.
[[nodiscard]] QString keyNames(Qt::KeyboardModifiers held, const QString& key);

/// The keys in a portal's description of a shortcut. GNOME puts them between other words and writes them for programs,
/// as in "Press <Control><Alt>d or <Super>s": those that are written so are taken out. Any other description is
/// returned as it is.
[[nodiscard]] QString readableKeys(const QString& description);

/// The keys in such a description for the toolkit, of several the first. None where it names no single combination that
/// the toolkit knows.
[[nodiscard]] std::optional<QKeyCombination> describedCombination(const QString& description);

} // namespace nookle
