#include "FileReference.h"

#include "FlatCborMap.h"

#include <sys/stat.h>

#include <cstddef>
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

[[nodiscard]] std::optional<FileIdentity> decodedIdentity(const FlatCborMap& map)
{
    const auto inode = map.number("inode");
    const auto kind = map.number("kind");
    const auto birthTime = map.number("birth");
    const auto size = map.number("size");
    const auto modificationTime = map.number("modified");
    const auto handleType = map.number("handleType");
    const auto handle = map.bytes("handle");

    const bool isWhole =
        inode && kind && size && modificationTime && handleType && handle && (birthTime || map.isNull("birth"));
    if (!isWhole || (*kind & ~qint64(S_IFMT)) != 0)
        return std::nullopt;
    if (*handleType < std::numeric_limits<int>::min() || *handleType > std::numeric_limits<int>::max())
        return std::nullopt;

    FileIdentity identity;
    identity.inode = static_cast<quint64>(*inode);
    identity.kind = static_cast<quint32>(*kind);
    identity.birthTime = birthTime;
    identity.size = static_cast<quint64>(*size);
    identity.modificationTime = *modificationTime;
    identity.handleType = static_cast<int>(*handleType);
    identity.handle = *handle;
    return identity;
}

} // namespace

QByteArray FileReference::encode() const
{
    constexpr std::size_t fieldCount = 9;
    constexpr qsizetype sizeOfTheRest = 160;
    FlatCborMapWriter writer(fieldCount, path.size() + sizeOfTheRest);
    writer.add("version", formatVersion);
    writer.add("path", path);
    writer.add("inode", asSigned(identity.inode));
    writer.add("kind", qint64(identity.kind));
    if (identity.birthTime)
        writer.add("birth", *identity.birthTime);
    else
        writer.add("birth", nullptr);
    writer.add("size", asSigned(identity.size));
    writer.add("modified", identity.modificationTime);
    writer.add("handleType", qint64(identity.handleType));
    writer.add("handle", identity.handle);
    return writer.bytes();
}

std::optional<FileReference> FileReference::decode(const QByteArray& bytes)
{
    if (bytes.size() > longestReference)
        return std::nullopt;
    const auto map = FlatCborMap::parse(bytes);
    if (!map || map->number("version") != formatVersion)
        return std::nullopt;
    const auto path = map->bytes("path");
    if (!path || !path->startsWith('/') || path->contains('\0'))
        return std::nullopt;
    const auto identity = decodedIdentity(*map);
    return identity ? std::optional(FileReference{ *path, *identity }) : std::nullopt;
}

} // namespace nookle
