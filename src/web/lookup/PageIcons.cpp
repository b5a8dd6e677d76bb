#include "PageIcons.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <optional>

namespace nookle {

namespace {

// The usual sides of icons that do not declare their size, in pixels.
inline constexpr int usualTouchIconSide = 180;
inline constexpr int usualIconSide = 32;

constexpr std::array readableTypes{ "image/png",    "image/x-icon", "image/vnd.microsoft.icon",
                                    "image/ico",    "image/icon",   "image/jpeg",
                                    "image/jpg",    "image/gif",    "image/webp",
                                    "image/svg+xml" };

[[nodiscard]] bool isScalable(const IconLink& link)
{
    if (!link.type.isEmpty())
        return link.type.startsWith(QLatin1String("image/svg"), Qt::CaseInsensitive);
    return QUrl(link.href).path().endsWith(QLatin1String(".svg"), Qt::CaseInsensitive);
}

[[nodiscard]] bool isReadable(const IconLink& link)
{
    const QString type = link.type.section(u';', 0, 0).trimmed().toLower();
    return type.isEmpty() || std::any_of(readableTypes.begin(), readableTypes.end(), [&](const char* readable) {
               return type == QLatin1String(readable);
           });
}

/// The width that "180x180" declares.
[[nodiscard]] std::optional<int> sideOf(const QString& size)
{
    bool isNumber = false;
    const int side = size.section(u'x', 0, 0, QString::SectionCaseInsensitiveSeps).toInt(&isNumber);
    return isNumber && side > 0 ? std::optional(side) : std::nullopt;
}

/// Lower is better: first the icons that are large enough, from small to large, then those that are too small, from
/// large to small.
[[nodiscard]] int rankOfSide(int side)
{
    return side >= wantedIconSide ? side - wantedIconSide : 1'000'000 - side;
}

[[nodiscard]] int rank(const IconLink& link)
{
    if (isScalable(link))
        return 0;
    std::optional<int> best;
    for (const QString& size : link.sizes.simplified().split(u' ')) {
        if (const std::optional<int> side = sideOf(size))
            best = best ? std::min(*best, rankOfSide(*side)) : rankOfSide(*side);
    }
    return best.value_or(rankOfSide(link.isTouchIcon ? usualTouchIconSide : usualIconSide));
}

[[nodiscard]] bool isForEveryLook(const IconLink& link)
{
    return link.media.isEmpty() || link.media.compare(QLatin1String("all"), Qt::CaseInsensitive) == 0;
}

[[nodiscard]] bool isBetter(const IconLink& left, const IconLink& right)
{
    if (isForEveryLook(left) != isForEveryLook(right))
        return isForEveryLook(left);
    return rank(left) < rank(right);
}

[[nodiscard]] bool isPlace(const QUrl& url)
{
    const QString scheme = url.scheme();
    if (scheme == QLatin1String("data"))
        return true;
    return url.isValid() && !url.host().isEmpty()
        && (scheme == QLatin1String("http") || scheme == QLatin1String("https"));
}

/// The address of `href`; none if it is empty or invalid.
[[nodiscard]] std::optional<QUrl> resolved(const QUrl& base, const QString& href)
{
    const QUrl url(href);
    return href.isEmpty() || !url.isValid() ? std::nullopt : std::optional(base.resolved(url));
}

[[nodiscard]] QUrl siteIcon(const QUrl& page)
{
    QUrl url = page.adjusted(QUrl::RemoveUserInfo | QUrl::RemoveQuery | QUrl::RemoveFragment);
    url.setPath(QStringLiteral("/favicon.ico"));
    return url;
}

} // namespace

QList<QUrl> iconPlaces(const QUrl& page, const QString& baseHref, const QList<IconLink>& links)
{
    // Of equally good icons, the last one in the page wins.
    QList<IconLink> ranked(links.crbegin(), links.crend());
    std::stable_sort(ranked.begin(), ranked.end(), isBetter);
    const QUrl base = resolved(page, baseHref).value_or(page);
    QList<QUrl> places;
    for (const IconLink& link : ranked) {
        const std::optional<QUrl> url = isReadable(link) ? resolved(base, link.href) : std::nullopt;
        if (places.size() < maximumIconPlaces && url && isPlace(*url) && !places.contains(*url))
            places.append(*url);
    }
    if (const QUrl last = siteIcon(page); !places.contains(last))
        places.append(last);
    return places;
}

} // namespace nookle
