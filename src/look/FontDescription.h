#pragma once

#include <QFont>
#include <QString>

#include <optional>

namespace nookle {

/// The font of a description as GTK's settings have it, such as "Noto Sans Light Italic 10": families, words for
/// weight, style and width, and the size in points, or in pixels with "px" behind it, of which 96 are an inch. None
/// without a family or a size.
[[nodiscard]] std::optional<QFont> describedFont(const QString& description);

} // namespace nookle
