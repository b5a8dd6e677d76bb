#pragma once

#include "IconLink.h"

#include <QList>
#include <QUrl>

namespace nookle {

/// The addresses of a page's icons, the best one first. The last one is the site's default icon, which pages need not
/// name. `page` is the page's address, and `baseHref` its declared base for relative addresses, or empty.
[[nodiscard]] QList<QUrl> iconPlaces(const QUrl& page, const QString& baseHref, const QList<IconLink>& links);

/// The minimum width of an icon in pixels for drawing it sharp.
inline constexpr int wantedIconSide = 56;

/// The maximum number of icons named by the page that are tried.
inline constexpr qsizetype maximumIconPlaces = 3;

} // namespace nookle
