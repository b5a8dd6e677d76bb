#pragma once

#include "IconLink.h"

#include <QList>
#include <QUrl>

namespace nookle {

/// Where to look for a page's icon, the best place first; the site's own icon, which pages need not name, last. The
/// page is at `page`, and `baseHref` is what it says its addresses are relative to, or empty.
[[nodiscard]] QList<QUrl> iconPlaces(const QUrl& page, const QString& baseHref, const QList<IconLink>& links);

/// The pixels that an icon should have at least, to be drawn sharp.
inline constexpr int wantedIconSide = 56;

/// How many places of a page's own choice are tried.
inline constexpr qsizetype maximumIconPlaces = 3;

} // namespace nookle
