#pragma once

#include <QByteArray>

#include <map>
#include <optional>

namespace nookle {

/// The texts that a PNG file carries beside its picture, by their keys. Texts that are compressed are left empty.
using PngText = std::map<QByteArray, QByteArray>;

/// Reads the texts of the PNG file behind `descriptor`; none while it is no complete one. Reads the heads of its chunks
/// and its short texts, never the picture.
[[nodiscard]] std::optional<PngText> readPngText(int descriptor);

} // namespace nookle
