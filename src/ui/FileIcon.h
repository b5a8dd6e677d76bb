#pragma once

#include <QIcon>
#include <QUrl>

namespace nookle {

/// The desktop's icon for the kind of file at `url`, at once: it looks at the name, and whether it is a folder. May be
/// a null icon where the icon theme has none.
[[nodiscard]] QIcon fileIcon(const QUrl& url);

} // namespace nookle
