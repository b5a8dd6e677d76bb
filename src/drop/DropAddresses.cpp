#include "DropAddresses.h"

#include "DropPayload.h"
#include "DropText.h"
#include "LinkUrl.h"
#include "UriList.h"

#include <QByteArray>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace nookle {

namespace {

[[nodiscard]] QString uriListFormat()
{
    return QStringLiteral("text/uri-list");
}

/// The address, a line feed and the title, in UTF-8.
[[nodiscard]] QString netscapeFormat()
{
    return QStringLiteral("_NETSCAPE_URL");
}

/// The address, a line feed and the title, in UTF-16 or UTF-8.
[[nodiscard]] QString mozillaFormat()
{
    return QStringLiteral("text/x-moz-url");
}

/// The address of a browser's tab, in UTF-16.
[[nodiscard]] QString mozillaTabFormat()
{
    return QStringLiteral("text/x-moz-text-internal");
}

/// The title alone, in UTF-16.
[[nodiscard]] QString mozillaTitleFormat()
{
    return QStringLiteral("text/x-moz-url-desc");
}

/// Chromium's marks of a drag out of a page, whose data a script of the page may have chosen. Wayland programs offer
/// the second one alone.
[[nodiscard]] QStringList pageFormats()
{
    return { QStringLiteral("chromium/x-renderer-taint"), QStringLiteral("chromium/x-web-custom-data") };
}

[[nodiscard]] QByteArray load(const DropPayload& payload, const QString& format)
{
    return payload.formats().contains(format) ? payload.data(format) : QByteArray();
}

/// The lines of the formats that hold an address and a title.
[[nodiscard]] QStringList loadLines(const DropPayload& payload, const QString& format)
{
    return decodeText(load(payload, format), format).split(QLatin1Char('\n'));
}

/// Whether addresses of files are taken.
enum class Files { taken, refused };

/// A page may not choose files of the user's.
[[nodiscard]] Files filesOf(const DropPayload& payload)
{
    const QStringList formats = payload.formats();
    const bool isOfPage = std::any_of(formats.begin(), formats.end(), isPageFormat);
    return isOfPage ? Files::refused : Files::taken;
}

[[nodiscard]] bool isUsable(const QString& url, Files files)
{
    return isFileAddress(url) ? files == Files::taken : LinkUrl::parse(url).has_value();
}

/// The address from a source that offers no list of addresses. Such sources are browsers, and not all of them mark what
/// a script of a page may have chosen.
[[nodiscard]] std::optional<QString> offeredAddress(const DropPayload& payload)
{
    const QStringList lines{ loadLines(payload, netscapeFormat()).value(0),
                             loadLines(payload, mozillaFormat()).value(0),
                             decodeText(load(payload, mozillaTabFormat()), QStringLiteral("text/unicode")) };
    for (const QString& line : lines) {
        const auto url = uriAddress(line.toUtf8());
        if (url && isUsable(*url, Files::refused))
            return url;
    }
    return std::nullopt;
}

[[nodiscard]] std::optional<QString> trimmedTitle(const QString& title)
{
    const QString trimmed = title.trimmed();
    return trimmed.isEmpty() ? std::nullopt : std::optional(trimmed);
}

[[nodiscard]] std::optional<QString> offeredTitle(const DropPayload& payload)
{
    for (const QString& format : { netscapeFormat(), mozillaFormat() }) {
        if (auto title = trimmedTitle(loadLines(payload, format).value(1)))
            return title;
    }
    return trimmedTitle(decodeText(load(payload, mozillaTitleFormat()), QStringLiteral("text/unicode")));
}

} // namespace

bool DroppedAddress::isFile() const
{
    return isFileAddress(url);
}

bool isAddressFormat(const QString& format)
{
    return format == uriListFormat() || format == netscapeFormat() || format == mozillaFormat()
        || format == mozillaTabFormat();
}

bool isTitleFormat(const QString& format)
{
    return format == mozillaTitleFormat();
}

bool isPageFormat(const QString& format)
{
    return pageFormats().contains(format);
}

std::vector<DroppedAddress> loadDropAddresses(const DropPayload& payload)
{
    std::vector<QString> urls = uriListAddresses(load(payload, uriListFormat()));
    std::erase_if(urls, [files = filesOf(payload)](const QString& url) { return !isUsable(url, files); });
    if (urls.empty()) {
        if (const auto url = offeredAddress(payload))
            urls.push_back(*url);
    }
    std::vector<DroppedAddress> addresses;
    for (QString& url : urls)
        addresses.push_back({ std::move(url), std::nullopt });
    return addresses;
}

std::optional<QString> loadDropTitle(const DropPayload& payload, const QString& url)
{
    const auto title = offeredTitle(payload);
    // Sources without a title repeat the address in its place.
    return title == url ? std::nullopt : title;
}

} // namespace nookle
