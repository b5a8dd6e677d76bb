#pragma once

#include <QByteArray>

#include <vector>

namespace nookle {

/// The Trash folders of the volume on which `path` lies or lay. They need not exist. `dataHome` is the user's data
/// folder; its Trash serves its own volume.
[[nodiscard]] std::vector<QByteArray> trashFolders(const QByteArray& path, const QByteArray& dataHome);

} // namespace nookle
