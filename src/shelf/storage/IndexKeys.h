#pragma once

#include <QLatin1String>

namespace nookle::indexKeys {

inline constexpr QLatin1String versionKey("version");
inline constexpr QLatin1String itemsKey("items");
inline constexpr QLatin1String idKey("id");
inline constexpr QLatin1String createdAtKey("createdAt");
inline constexpr QLatin1String contentKey("content");
inline constexpr QLatin1String pinnedKey("pinned");
inline constexpr QLatin1String fileKey("file");
inline constexpr QLatin1String bookmarkKey("bookmark");
inline constexpr QLatin1String nameKey("name");
inline constexpr QLatin1String textKey("text");
inline constexpr QLatin1String textValueKey("_0");
inline constexpr QLatin1String linkKey("link");
inline constexpr QLatin1String urlKey("url");
inline constexpr QLatin1String titleKey("title");
inline constexpr QLatin1String hasIconKey("hasIcon");
inline constexpr QLatin1String imageKey("image");
inline constexpr QLatin1String fileNameKey("fileName");

} // namespace nookle::indexKeys
