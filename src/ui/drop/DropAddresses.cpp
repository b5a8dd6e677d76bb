#include "DropAddresses.h"

#include "DropPayload.h"
#include "DropText.h"
#include "UriList.h"

#include <QByteArray>
#include <QStringList>

namespace nookle {

namespace {

[[nodiscard]] QString uriListFormat()
{
    return QStringLiteral("text/uri-list");
}

/// The address, a line feed, the title; in UTF-8.
[[nodiscard]] QString netscapeFormat()
{
    return QStringLiteral("_NETSCAPE_URL");
}

/// The same in UTF-16, or in UTF-8.
[[nodiscard]] QString mozillaFormat()
{
    return QStringLiteral("text/x-moz-url");
}

/// The title alone, in UTF-16.
[[nodiscard]] QString mozillaTitleFormat()
{
    return QStringLiteral("text/x-moz-url-desc");
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
    return format == uriListFormat() || format == netscapeFormat() || format == mozillaFormat();
}

std::vector<DroppedAddress> loadDropAddresses(const DropPayload& payload)
{
    std::vector<DroppedAddress> addresses;
    for (const QString& url : uriListAddresses(load(payload, uriListFormat())))
        addresses.push_back({ url, std::nullopt });
    for (const QString& format : { netscapeFormat(), mozillaFormat() }) {
        if (!addresses.empty())
            break;
        if (const auto url = uriAddress(loadLines(payload, format).value(0).toUtf8()))
            addresses.push_back({ *url, std::nullopt });
    }
    return addresses;
}

std::optional<QString> loadDropTitle(const DropPayload& payload, const QString& url)
{
    const auto title = offeredTitle(payload);
    // Sources that know no title repeat the address in its place.
    return title == url ? std::nullopt : title;
}

} // namespace nookle
