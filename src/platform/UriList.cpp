#include "UriList.h"

#include <QList>
#include <QSysInfo>

#include <algorithm>
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

[[nodiscard]] bool needsNoEncoding(char each)
{
    return each > ' ' && each < '\x7f';
}

/// Not every source encodes what is not ASCII, and a file name need not be text at all.
[[nodiscard]] QByteArray encoded(const QByteArray& address)
{
    if (std::all_of(address.begin(), address.end(), needsNoEncoding))
        return address;
    QByteArray result;
    result.reserve(address.size());
    for (const char each : address) {
        if (needsNoEncoding(each))
            result += each;
        else
            result += '%' + QByteArray(1, each).toHex().toUpper();
    }
    return result;
}

/// A file's address may name the machine that it is on; this one needs no name.
[[nodiscard]] QByteArray withoutOwnHost(const QByteArray& address)
{
    // Asking for it takes longer than all the rest.
    static const QByteArray own = "file://" + QSysInfo::machineHostName().toUtf8() + '/';
    return address.startsWith(own) ? "file:///" + address.mid(own.size()) : address;
}

} // namespace

std::optional<QString> uriAddress(const QByteArray& line)
{
    const QByteArray address = line.trimmed();
    if (!hasScheme(address))
        return std::nullopt;
    return QString::fromLatin1(encoded(withoutOwnHost(address)));
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
