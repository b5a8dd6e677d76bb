#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QtGlobal>

#include <cstddef>
#include <optional>
#include <variant>
#include <vector>

namespace nookle {

/// Writes a CBOR map of text keys to numbers, bytes and nulls. Straight into memory: thousands of them are written at
/// once, and Qt's writers, which serve any device, take several times as long.
class FlatCborMapWriter final {
public:
    FlatCborMapWriter(std::size_t fieldCount, qsizetype expectedSize);

    /// As many calls as there are fields.
    void add(const char* key, qint64 number);
    void add(const char* key, const QByteArray& bytes);
    void add(const char* key, std::nullptr_t);

    [[nodiscard]] const QByteArray& bytes() const { return m_bytes; }

private:
    void addKey(const char* key);
    template <typename Encode, typename... Value> void addHead(Encode encode, Value... value);

    QByteArray m_bytes;
};

/// What a `FlatCborMapWriter` wrote. It refers to the bytes that it was read from, which must outlive it.
class FlatCborMap final {
public:
    /// None for anything else than one whole such map, and safe with any bytes.
    [[nodiscard]] static std::optional<FlatCborMap> parse(const QByteArray& bytes);

    /// The value of the first field with that key; none when it is missing or of another kind.
    [[nodiscard]] std::optional<qint64> number(QByteArrayView key) const;
    [[nodiscard]] std::optional<QByteArray> bytes(QByteArrayView key) const;
    [[nodiscard]] bool isNull(QByteArrayView key) const;

private:
    using Value = std::variant<std::nullptr_t, qint64, QByteArrayView>;
    struct Field {
        QByteArrayView key;
        Value value;
    };

    template <typename Kind> [[nodiscard]] const Kind* find(QByteArrayView key) const;

    std::vector<Field> m_fields;
};

} // namespace nookle
