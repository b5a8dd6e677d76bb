#include "UriList.h"

#include <QList>
#include <QSysInfo>

#include <algorithm>
#include <array>
#include <utility>

namespace nookle {

namespace {

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

[[nodiscard]] bool isHexadecimal(char each)
{
    return (each >= '0' && each <= '9') || (each >= 'a' && each <= 'f') || (each >= 'A' && each <= 'F');
}

[[nodiscard]] bool beginsEscape(QByteArrayView rest)
{
    return rest.size() >= 3 && rest[0] == '%' && isHexadecimal(rest[1]) && isHexadecimal(rest[2]);
}

/// For each byte, whether it needs no encoding anywhere behind the host.
[[nodiscard]] constexpr std::array<bool, 256> charactersThatStandForThemselves()
{
    std::array<bool, 256> table{};
    for (std::size_t each = '!'; each < 0x7f; ++each)
        table[each] = true;
    for (const char each : { '"', '#', '%', '<', '>', '[', '\\', ']', '^', '`', '{', '|', '}' })
        table[static_cast<unsigned char>(each)] = false;
    return table;
}

[[nodiscard]] bool standsForItself(char each)
{
    static constexpr std::array<bool, 256> table = charactersThatStandForThemselves();
    return table[static_cast<unsigned char>(each)];
}

[[nodiscard]] QByteArray escape(char each)
{
    return '%' + QByteArray(1, each).toHex().toUpper();
}

/// The end of the host part of an address; 0 when there is no host.
[[nodiscard]] qsizetype endOfHost(const QByteArray& address)
{
    const qsizetype colon = address.indexOf(':');
    if (address.mid(colon + 1, 2) != "//")
        return 0;
    const auto end = std::find_if(address.begin() + colon + 3, address.end(),
                                  [](char each) { return each == '/' || each == '?' || each == '#'; });
    return end - address.begin();
}

/// Replaces backslashes by slashes in the host and path of web and FTP addresses, as browsers do.
[[nodiscard]] QByteArray withSlashes(QByteArray address)
{
    if (!address.contains('\\'))
        return address;
    const QByteArray scheme = address.left(address.indexOf(':')).toLower();
    if (scheme != "http" && scheme != "https" && scheme != "ftp")
        return address;
    const auto endOfPath =
        std::find_if(address.begin(), address.end(), [](char each) { return each == '?' || each == '#'; });
    std::replace(address.begin(), endOfPath, '\\', '/');
    return address;
}

/// Encodes all "@" before the last one. Like browsers, takes the host to begin behind the last "@", and the others for
/// part of the password.
[[nodiscard]] QByteArray withOneUser(QByteArray address)
{
    const qsizetype end = endOfHost(address);
    const qsizetype last = address.lastIndexOf('@', end - 1);
    if (end == 0 || last < 0)
        return address;
    return address.left(last).replace('@', "%40") + address.mid(last);
}

/// Percent-encodes what the source should have encoded; a file name need not even be text. Existing escapes are kept.
[[nodiscard]] QByteArray encoded(const QByteArray& address)
{
    // A quick path: most addresses need no encoding, and thousands may come at once.
    if (std::all_of(address.begin(), address.end(), standsForItself))
        return address;
    // Brackets in a file's address do no harm, and other programs write them in the same way.
    const bool isFile = isFileAddress(QString::fromLatin1(address.left(5)));
    const qsizetype brackets = isFile ? address.size() : endOfHost(address);
    bool isInFragment = false;
    QByteArray result;
    result.reserve(address.size());
    for (qsizetype index = 0; index < address.size(); ++index) {
        const char each = address[index];
        const bool mayHaveBracket = index < brackets && (each == '[' || each == ']');
        const bool beginsFragment = each == '#' && !isInFragment;
        isInFragment = isInFragment || beginsFragment;
        if (standsForItself(each) || mayHaveBracket || beginsFragment
            || beginsEscape(QByteArrayView(address).sliced(index)))
            result += each;
        else
            result += escape(each);
    }
    return result;
}

/// Removes this machine's name from a file's address.
[[nodiscard]] QByteArray withoutOwnHost(const QByteArray& address)
{
    // Cached, because reading the name takes longer than everything else.
    static const QByteArray own = "file://" + QSysInfo::machineHostName().toUtf8() + '/';
    return address.startsWith(own) ? "file:///" + address.mid(own.size()) : address;
}

} // namespace

std::optional<QString> uriAddress(const QByteArray& line)
{
    const QByteArray address = line.trimmed();
    if (!hasScheme(address))
        return std::nullopt;
    return QString::fromLatin1(encoded(withOneUser(withSlashes(withoutOwnHost(address)))));
}

std::vector<QString> uriListAddresses(QByteArray list)
{
    while (list.endsWith('\0'))
        list.chop(1);
    std::vector<QString> found;
    for (const QByteArray& line : list.split('\n')) {
        if (auto address = uriAddress(line))
            found.push_back(std::move(*address));
    }
    return found;
}

bool isFileAddress(const QString& address)
{
    return address.startsWith(QLatin1String("file:"), Qt::CaseInsensitive);
}

} // namespace nookle
