#pragma once

#include <QColor>
#include <QPalette>

namespace nookle {

// The desktop's own colours, named by their use in the shelf.

/// For text and equally important parts.
[[nodiscard]] QColor primaryColor(const QPalette& palette);
/// For less important parts: hints and symbols.
[[nodiscard]] QColor secondaryColor(const QPalette& palette);
/// For explanations in windows: the toolkit's colour for hints, made stronger where it is hard to read (4.5:1 at least,
/// also on the ground of a group of controls, which is a little darker than the window).
[[nodiscard]] QColor explanationColor(const QPalette& palette);
/// Barely visible, for the borders of cards.
[[nodiscard]] QColor quaternaryColor(const QPalette& palette);
/// For the line around the panel, which sets it off from a window of the same colour.
[[nodiscard]] QColor outlineColor(const QPalette& palette);
/// For parts that are switched on or selected.
[[nodiscard]] QColor accentColor(const QPalette& palette);
/// The background of cards and pages.
[[nodiscard]] QColor cardColor(const QPalette& palette);

} // namespace nookle
