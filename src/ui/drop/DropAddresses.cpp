#include "DropAddresses.h"

#include "DropPayload.h"
#include "DropText.h"

#include <QByteArray>
#include <QStringList>
#include <QSysInfo>

#include <algorithm>
#include <utility>

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

[[nodiscard]] bool isSchemeCharacter(char each)
{
    return (each >= 'a' && each <= 'z') || (each >= 'A' && each <= 'Z') || (each >= '0' && each <= '9') || each == '+'
        || each == '-' || each == '.';
}

[[nodiscard]] bool hasScheme(const QByteArray& address)
{
    const qsizetype colon = address.indexOf(':');
    return colon > 0 && std::all_of(address.begin(), address.begin() + colon, isSchemeCharacter);
}

/// Not every source encodes what is not ASCII, and a file name need not be text at all.
[[nodiscard]] QByteArray encoded(const QByteArray& address)
{
    QByteArray result;
    result.reserve(address.size());
    for (const char each : address) {
        if (each > ' ' && each < '\x7f')
            result += each;
        else
            result += '%' + QByteArray(1, each).toHex().toUpper();
    }
    return result;
}

/// A file's address may name the machine that it is on; this one needs no name.
[[nodiscard]] QByteArray withoutOwnHost(const QByteArray& address)
{
    const QByteArray own = "file://" + QSysInfo::machineHostName().toUtf8() + '/';
    return address.startsWith(own) ? "file:///" + address.mid(own.size()) : address;
}

[[nodiscard]] std::optional<DroppedAddress> addressOf(const QByteArray& line)
{
    const QByteArray address = line.trimmed();
    if (!hasScheme(address))
        return std::nullopt;
    return DroppedAddress{ QString::fromLatin1(encoded(withoutOwnHost(address))), std::nullopt };
}

/// The lines of a list without its comments; sources end them with or without a carriage return, and the list with or
/// without a NUL.
[[nodiscard]] std::vector<DroppedAddress> addressesOf(QByteArray list)
{
    while (list.endsWith('\0'))
        list.chop(1);
    std::vector<DroppedAddress> found;
    for (const QByteArray& line : list.split('\n')) {
        if (auto address = addressOf(line))
            found.push_back(std::move(*address));
    }
    return found;
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
    return url.startsWith(QLatin1String("file:"), Qt::CaseInsensitive);
}

bool isAddressFormat(const QString& format)
{
    return format == uriListFormat() || format == netscapeFormat() || format == mozillaFormat();
}

std::vector<DroppedAddress> loadDropAddresses(const DropPayload& payload)
{
    std::vector<DroppedAddress> addresses = addressesOf(load(payload, uriListFormat()));
    for (const QString& format : { netscapeFormat(), mozillaFormat() }) {
        if (!addresses.empty())
            break;
        if (auto address = addressOf(loadLines(payload, format).value(0).toUtf8()))
            addresses.push_back(std::move(*address));
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
