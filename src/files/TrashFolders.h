#pragma once

#include <QByteArray>

#include <vector>

namespace nookle {

/// The folders that hold what was moved to the Trash from the volume on which `path` lies or lay, present or not.
/// `dataHome` is the user's data folder, whose Trash serves its own volume.
[[nodiscard]] std::vector<QByteArray> trashFolders(const QByteArray& path, const QByteArray& dataHome);

} // namespace nookle
