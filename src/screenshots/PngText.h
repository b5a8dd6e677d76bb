#pragma once

#include <QByteArray>

#include <map>
#include <optional>

namespace nookle {

/// The text entries of a PNG file, by their keys. Compressed texts are left empty.
using PngText = std::map<QByteArray, QByteArray>;

/// Reads the texts of the PNG file behind `descriptor`; none if it is not a complete PNG file. Reads only the chunk
/// headers and short texts, not the picture.
[[nodiscard]] std::optional<PngText> readPngText(int descriptor);

} // namespace nookle
