#pragma once

#include <QByteArray>

#include <optional>

namespace nookle {

/// The SVG drawing in `document` without anything that reaches beyond it: the toolkit opens whatever file a drawing
/// names. Images within the drawing stay, as long as they are pixels. Nothing for what is no well-formed SVG.
[[nodiscard]] std::optional<QByteArray> cleanedSvg(const QByteArray& document);

} // namespace nookle
