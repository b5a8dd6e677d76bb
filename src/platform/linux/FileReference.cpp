#include "FileReference.h"

#include <QCborMap>
#include <QCborStreamWriter>
#include <QCborValue>

#include <sys/stat.h>

#include <limits>

namespace nookle {

namespace {

inline constexpr qint64 formatVersion = 1;

// Far above the longest path and the longest handle that the kernel gives, and small enough to be read at once.
inline constexpr qsizetype longestReference = 65'536;

// CBOR's integers are signed here; the bits of an unsigned number survive the way there and back.
[[nodiscard]] qint64 asSigned(quint64 number)
{
    return static_cast<qint64>(number);
}

[[nodiscard]] std::optional<FileIdentity> decodedIdentity(const QCborMap& map)
{
    const QCborValue inode = map[QLatin1String("inode")];
    const QCborValue kind = map[QLatin1String("kind")];
    const QCborValue birthTime = map[QLatin1String("birth")];
    const QCborValue size = map[QLatin1String("size")];
    const QCborValue modificationTime = map[QLatin1String("modified")];
    const QCborValue handleType = map[QLatin1String("handleType")];
    const QCborValue handle = map[QLatin1String("handle")];

    const bool hasNumbers = inode.isInteger() && kind.isInteger() && size.isInteger() && modificationTime.isInteger()
        && handleType.isInteger() && handle.isByteArray() && (birthTime.isInteger() || birthTime.isNull());
    if (!hasNumbers || (kind.toInteger() & ~qint64(S_IFMT)) != 0)
        return std::nullopt;
    const qint64 type = handleType.toInteger();
    if (type < std::numeric_limits<int>::min() || type > std::numeric_limits<int>::max())
        return std::nullopt;

    FileIdentity identity;
    identity.inode = static_cast<quint64>(inode.toInteger());
    identity.kind = static_cast<quint32>(kind.toInteger());
    if (birthTime.isInteger())
        identity.birthTime = birthTime.toInteger();
    identity.size = static_cast<quint64>(size.toInteger());
    identity.modificationTime = modificationTime.toInteger();
    identity.handleType = static_cast<int>(type);
    identity.handle = handle.toByteArray();
    return identity;
}

} // namespace

// Written as a stream, which is several times as fast as a map in memory: thousands of files are added at once.
QByteArray FileReference::encode() const
{
    constexpr quint64 fieldCount = 9;
    QByteArray bytes;
    QCborStreamWriter writer(&bytes);
    const auto write = [&writer](QLatin1String key, const auto& value) {
        writer.append(key);
        writer.append(value);
    };
    writer.startMap(fieldCount);
    write(QLatin1String("version"), formatVersion);
    write(QLatin1String("path"), path);
    write(QLatin1String("inode"), asSigned(identity.inode));
    write(QLatin1String("kind"), qint64(identity.kind));
    writer.append(QLatin1String("birth"));
    if (identity.birthTime)
        writer.append(*identity.birthTime);
    else
        writer.append(nullptr);
    write(QLatin1String("size"), asSigned(identity.size));
    write(QLatin1String("modified"), identity.modificationTime);
    write(QLatin1String("handleType"), qint64(identity.handleType));
    write(QLatin1String("handle"), identity.handle);
    writer.endMap();
    return bytes;
}

std::optional<FileReference> FileReference::decode(const QByteArray& bytes)
{
    if (bytes.isEmpty() || bytes.size() > longestReference)
        return std::nullopt;
    QCborParserError error{};
    const QCborValue value = QCborValue::fromCbor(bytes, &error);
    if (error.error != QCborError::NoError || error.offset != bytes.size() || !value.isMap())
        return std::nullopt;

    const QCborMap map = value.toMap();
    const QByteArray path = map[QLatin1String("path")].toByteArray();
    if (map[QLatin1String("version")] != QCborValue(formatVersion) || !path.startsWith('/') || path.contains('\0'))
        return std::nullopt;
    const auto identity = decodedIdentity(map);
    return identity ? std::optional(FileReference{ path, *identity }) : std::nullopt;
}

} // namespace nookle
