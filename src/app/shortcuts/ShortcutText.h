#pragma once

#include <QKeyCombination>
#include <QString>

#include <optional>

namespace nookle {

/// The keys in a text such as "Ctrl+Alt+Super+D" or "Super+F5". None unless they are one key and modifiers among which
/// is Ctrl, Alt or Super: without one, the key could not be typed any more. Shift is refused: with it, the same keys do
/// something else.
[[nodiscard]] std::optional<QKeyCombination> shortcutKeys(const QString& text);

} // namespace nookle
