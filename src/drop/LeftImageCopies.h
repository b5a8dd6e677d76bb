#pragma once

#include <QDateTime>

namespace nookle {

/// Removes the copies of dropped images that earlier runs left in the temporary folder because they were killed. These
/// are folders that the user owns, that have names as `writeImageCopy` gives them, and whose entries last changed
/// before `unchangedSince`.
void removeLeftImageCopies(const QDateTime& unchangedSince);

} // namespace nookle
