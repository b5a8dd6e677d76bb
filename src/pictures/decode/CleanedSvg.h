#pragma once

#include <QByteArray>

#include <optional>

namespace nookle {

/// The SVG drawing in `document` without references to other files: the toolkit would open any file that a drawing
/// names. Embedded pixel images are kept. None if `document` is not well-formed SVG.
[[nodiscard]] std::optional<QByteArray> cleanedSvg(const QByteArray& document);

} // namespace nookle
