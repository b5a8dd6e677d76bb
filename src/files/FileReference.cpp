#include "FileReference.h"

#include <QCborMap>
#include <QCborValue>
#include <QDataStream>
#include <QIODevice>

#include <sys/stat.h>

#include <limits>
#include <utility>

namespace nookle {

namespace {

// The first bytes of a record: "NKR2".
inline constexpr quint32 recordMark = 0x4e4b5232;

// In bytes. Far more than the longest path and the longest file handle need, and small enough to be read at once.
inline constexpr qsizetype longestReference = 65'536;

[[nodiscard]] bool isSound(const FileReference& reference)
{
    return reference.path.startsWith('/') && !reference.path.contains('\0')
        && (reference.identity.kind & ~quint32(S_IFMT)) == 0;
}

[[nodiscard]] std::optional<FileReference> fromRecord(const QByteArray& bytes)
{
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_6_4);
    FileReference reference;
    FileIdentity& identity = reference.identity;
    quint32 mark = 0;
    bool hasBirthTime = false;
    qint64 birthTime = 0;
    qint32 handleType = 0;
    stream >> mark >> reference.path >> identity.inode >> identity.kind >> hasBirthTime >> birthTime >> identity.size
        >> identity.modificationTime >> handleType >> identity.handle;
    if (stream.status() != QDataStream::Ok || !stream.atEnd() || mark != recordMark)
        return std::nullopt;
    if (hasBirthTime)
        identity.birthTime = birthTime;
    identity.handleType = handleType;
    return reference;
}

/// Reads numbers and bytes from a map, and remembers whether any was missing or of another type.
class Fields final {
public:
    explicit Fields(QCborMap map)
        : m_map(std::move(map))
    {
    }

    [[nodiscard]] qint64 number(const char* key, qint64 least, qint64 most)
    {
        const QCborValue value = m_map[QLatin1String(key)];
        const qint64 number = value.toInteger();
        m_isWhole = m_isWhole && value.isInteger() && number >= least && number <= most;
        return number;
    }
    [[nodiscard]] qint64 number(const char* key)
    {
        return number(key, std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max());
    }
    [[nodiscard]] QByteArray bytes(const char* key)
    {
        const QCborValue value = m_map[QLatin1String(key)];
        m_isWhole = m_isWhole && value.isByteArray();
        return value.toByteArray();
    }
    [[nodiscard]] bool isNull(const char* key) { return m_map[QLatin1String(key)].isNull(); }

    [[nodiscard]] bool isWhole() const { return m_isWhole; }

private:
    QCborMap m_map;
    bool m_isWhole = true;
};

// The first format of references. Saved indexes may still contain it.
[[nodiscard]] std::optional<FileReference> fromCbor(const QByteArray& bytes)
{
    const QCborValue value = QCborValue::fromCbor(bytes);
    // If encoding the value does not give the same bytes, there is more data behind it, or it is no such reference.
    if (!value.isMap() || value.toCbor() != bytes)
        return std::nullopt;
    Fields fields(value.toMap());
    FileReference reference;
    FileIdentity& identity = reference.identity;
    constexpr qint64 version = 1;
    static_cast<void>(fields.number("version", version, version));
    reference.path = fields.bytes("path");
    identity.inode = static_cast<quint64>(fields.number("inode"));
    identity.kind = static_cast<quint32>(fields.number("kind", 0, S_IFMT));
    if (!fields.isNull("birth"))
        identity.birthTime = fields.number("birth");
    identity.size = static_cast<quint64>(fields.number("size"));
    identity.modificationTime = fields.number("modified");
    identity.handleType =
        static_cast<int>(fields.number("handleType", std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
    identity.handle = fields.bytes("handle");
    return fields.isWhole() ? std::optional(reference) : std::nullopt;
}

} // namespace

QByteArray FileReference::encode() const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_4);
    stream << recordMark << path << identity.inode << identity.kind << identity.birthTime.has_value()
           << identity.birthTime.value_or(0) << identity.size << identity.modificationTime
           << qint32(identity.handleType) << identity.handle;
    return bytes;
}

std::optional<FileReference> FileReference::decode(const QByteArray& bytes)
{
    if (bytes.size() > longestReference)
        return std::nullopt;
    auto reference = fromRecord(bytes);
    if (!reference)
        reference = fromCbor(bytes);
    return reference && isSound(*reference) ? reference : std::nullopt;
}

} // namespace nookle
