#pragma once

#include <QString>

namespace nookle::bench {

/// Fills the data folder `dataHome` with a shelf of `count` items, and `files` with the files that they refer to: of
/// ten items one each is a text, a link and an image, the others are files. False when the disk does not take it.
[[nodiscard]] bool writeSampleShelf(const QString& dataHome, const QString& files, int count);

} // namespace nookle::bench
