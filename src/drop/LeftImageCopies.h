#pragma once

#include <QDateTime>

namespace nookle {

/// Removes the copies of dropped images that programs left in the temporary folder when they were killed: folders of
/// the user's own that are called like those of `writeImageCopy`, and in which nothing has changed since that time.
void removeLeftImageCopies(const QDateTime& unchangedSince);

} // namespace nookle
