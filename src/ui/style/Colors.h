#pragma once

#include <QColor>
#include <QPalette>

namespace nookle {

// The desktop's own colours, by what the shelf uses them for.

/// Text, and what is as important.
[[nodiscard]] QColor primaryColor(const QPalette& palette);
/// What stands back: hints, symbols.
[[nodiscard]] QColor secondaryColor(const QPalette& palette);
/// Barely visible: borders of cards.
[[nodiscard]] QColor quaternaryColor(const QPalette& palette);
/// What is on, or chosen.
[[nodiscard]] QColor accentColor(const QPalette& palette);
/// The paper of cards and pages.
[[nodiscard]] QColor cardColor(const QPalette& palette);

} // namespace nookle
