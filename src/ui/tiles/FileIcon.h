#pragma once

#include <QIcon>
#include <QUrl>

namespace nookle {

/// The desktop's icon for a folder, or for the kind of file that the name at `url` tells, at once: the file is not
/// looked at. May be a null icon where the icon theme has none.
[[nodiscard]] QIcon fileIcon(const QUrl& url, bool isFolder);

} // namespace nookle
