#pragma once

#include <QIcon>
#include <QUrl>

namespace nookle {

/// The desktop's icon for a folder, or for the file type that the file name in `url` implies. Does not access the file.
/// A null icon if the icon theme has none.
[[nodiscard]] QIcon fileIcon(const QUrl& url, bool isFolder);

} // namespace nookle
