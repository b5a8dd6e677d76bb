#pragma once

#include <QPixmap>
#include <QUrl>

namespace nookle {

/// The saved icon of a link; null when the file holds none that can be shown. Reads PNG only, which is what the shelf
/// saves, and nothing large.
[[nodiscard]] QPixmap loadFavicon(const QUrl& file);

} // namespace nookle
