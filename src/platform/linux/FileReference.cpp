#include "FileReference.h"

#include <QCborMap>
#include <QCborValue>

#include <cbor.h>

#include <sys/stat.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
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

/// Writes a map into memory at once. Thousands of references are made at once, and Qt's writers, which serve any
/// device, take several times as long.
class CborWriter {
public:
    explicit CborWriter(qsizetype expectedSize) { m_bytes.reserve(expectedSize); }

    void beginMap(std::size_t fields) { head(cbor_encode_map_start, fields); }

    void field(const char* key, qint64 number)
    {
        this->key(key);
        if (number >= 0)
            head(cbor_encode_uint, static_cast<std::uint64_t>(number));
        else
            head(cbor_encode_negint, static_cast<std::uint64_t>(-1 - number));
    }

    void field(const char* key, const QByteArray& bytes)
    {
        this->key(key);
        head(cbor_encode_bytestring_start, static_cast<std::size_t>(bytes.size()));
        m_bytes += bytes;
    }

    void field(const char* key, std::nullptr_t)
    {
        this->key(key);
        head(cbor_encode_null);
    }

    [[nodiscard]] const QByteArray& bytes() const { return m_bytes; }

private:
    void key(const char* key)
    {
        head(cbor_encode_string_start, std::strlen(key));
        m_bytes += key;
    }

    template <typename Encode, typename... Value> void head(Encode encode, Value... value)
    {
        constexpr std::size_t longestHead = 9;
        std::array<unsigned char, longestHead> buffer{};
        const std::size_t size = encode(value..., buffer.data(), buffer.size());
        m_bytes.append(reinterpret_cast<const char*>(buffer.data()), static_cast<qsizetype>(size));
    }

    QByteArray m_bytes;
};

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

QByteArray FileReference::encode() const
{
    constexpr std::size_t fieldCount = 9;
    constexpr qsizetype sizeOfTheRest = 160;
    CborWriter writer(path.size() + sizeOfTheRest);
    writer.beginMap(fieldCount);
    writer.field("version", formatVersion);
    writer.field("path", path);
    writer.field("inode", asSigned(identity.inode));
    writer.field("kind", qint64(identity.kind));
    if (identity.birthTime)
        writer.field("birth", *identity.birthTime);
    else
        writer.field("birth", nullptr);
    writer.field("size", asSigned(identity.size));
    writer.field("modified", identity.modificationTime);
    writer.field("handleType", qint64(identity.handleType));
    writer.field("handle", identity.handle);
    return writer.bytes();
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
