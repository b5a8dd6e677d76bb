#include "XSettingsText.h"

#include <QtEndian>

#include <cstdint>
#include <optional>

namespace nookle {

namespace {

enum Type : std::uint8_t { integer = 0, string = 1, color = 2 };

/// Reads numbers and texts one after the other. After a read beyond the end everything is empty.
class Bytes {
public:
    explicit Bytes(const QByteArray& bytes)
        : m_bytes(bytes)
        , m_isBigEndian(!bytes.isEmpty() && bytes.front() == 1)
    {
    }

    [[nodiscard]] bool isBroken() const { return m_isBroken; }

    void skip(qsizetype count) { (void)take(count); }

    [[nodiscard]] std::uint8_t byte()
    {
        const QByteArray bytes = take(1);
        return bytes.isEmpty() ? 0 : static_cast<std::uint8_t>(bytes.front());
    }

    template <typename Number> [[nodiscard]] Number number()
    {
        const QByteArray bytes = take(sizeof(Number));
        if (bytes.isEmpty())
            return 0;
        return m_isBigEndian ? qFromBigEndian<Number>(bytes.constData()) : qFromLittleEndian<Number>(bytes.constData());
    }

    /// A text, which fills up multiples of four bytes.
    [[nodiscard]] QByteArray text(qsizetype length)
    {
        QByteArray text = take(length);
        skip((4 - length % 4) % 4);
        return text;
    }

private:
    [[nodiscard]] QByteArray take(qsizetype count)
    {
        if (m_isBroken || count < 0 || count > m_bytes.size() - m_position) {
            m_isBroken = true;
            return {};
        }
        m_position += count;
        return m_bytes.mid(m_position - count, count);
    }

    const QByteArray& m_bytes;
    bool m_isBigEndian;
    qsizetype m_position = 0;
    bool m_isBroken = false;
};

/// A null value for a color; none for an unknown type.
[[nodiscard]] std::optional<QVariant> readValue(Bytes& bytes, std::uint8_t type)
{
    switch (type) {
    case Type::integer:
        return QVariant(bytes.number<std::int32_t>());
    case Type::string:
        return QVariant(QString::fromUtf8(bytes.text(bytes.number<std::uint32_t>())));
    case Type::color:
        bytes.skip(4 * sizeof(std::uint16_t));
        return QVariant();
    default:
        return std::nullopt;
    }
}

} // namespace

ToolkitSettings::Values parseXSettings(const QByteArray& bytes)
{
    ToolkitSettings::Values values;
    Bytes reader(bytes);
    // The order of bytes, padding, and a serial number.
    reader.skip(8);
    const auto count = reader.number<std::uint32_t>();
    for (std::uint32_t entry = 0; entry < count; ++entry) {
        const std::uint8_t type = reader.byte();
        reader.skip(1);
        const QByteArray name = reader.text(reader.number<std::uint16_t>());
        reader.skip(sizeof(std::uint32_t));
        const std::optional<QVariant> value = readValue(reader, type);
        if (!value || reader.isBroken())
            break;
        if (value->isValid())
            values.insert(name, *value);
    }
    return values;
}

} // namespace nookle
