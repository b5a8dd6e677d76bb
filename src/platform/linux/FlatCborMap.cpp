#include "FlatCborMap.h"

#include <cbor.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>

namespace nookle {

namespace {

/// One item of the stream, which may be a head only.
struct Token {
    struct MapStart {
        std::size_t fieldCount;
    };
    struct Text {
        QByteArrayView text;
    };

    /// Nothing for all the kinds of items that a flat map does not hold.
    std::variant<std::monostate, std::nullptr_t, qint64, QByteArrayView, Text, MapStart> value;
};

[[nodiscard]] QByteArrayView view(cbor_data data, std::size_t size)
{
    return { reinterpret_cast<const char*>(data), static_cast<qsizetype>(size) };
}

void setNumber(void* token, std::uint64_t number)
{
    if (number <= std::uint64_t(std::numeric_limits<qint64>::max()))
        static_cast<Token*>(token)->value = static_cast<qint64>(number);
}

// CBOR stores -1 - n as n.
void setNegativeNumber(void* token, std::uint64_t number)
{
    if (number <= std::uint64_t(std::numeric_limits<qint64>::max()))
        static_cast<Token*>(token)->value = -1 - static_cast<qint64>(number);
}

[[nodiscard]] cbor_callbacks tokenCallbacks()
{
    cbor_callbacks callbacks = cbor_empty_callbacks;
    callbacks.uint8 = [](void* token, std::uint8_t number) { setNumber(token, number); };
    callbacks.uint16 = [](void* token, std::uint16_t number) { setNumber(token, number); };
    callbacks.uint32 = [](void* token, std::uint32_t number) { setNumber(token, number); };
    callbacks.uint64 = setNumber;
    callbacks.negint8 = [](void* token, std::uint8_t number) { setNegativeNumber(token, number); };
    callbacks.negint16 = [](void* token, std::uint16_t number) { setNegativeNumber(token, number); };
    callbacks.negint32 = [](void* token, std::uint32_t number) { setNegativeNumber(token, number); };
    callbacks.negint64 = setNegativeNumber;
    callbacks.null = [](void* token) { static_cast<Token*>(token)->value = nullptr; };
    callbacks.byte_string = [](void* token, cbor_data data, std::size_t size) {
        static_cast<Token*>(token)->value = view(data, size);
    };
    callbacks.string = [](void* token, cbor_data data, std::size_t size) {
        static_cast<Token*>(token)->value = Token::Text{ view(data, size) };
    };
    callbacks.map_start = [](void* token, std::size_t fieldCount) {
        static_cast<Token*>(token)->value = Token::MapStart{ fieldCount };
    };
    return callbacks;
}

/// Takes the first token off the bytes that are left.
[[nodiscard]] Token takeToken(QByteArrayView& rest)
{
    static const cbor_callbacks callbacks = tokenCallbacks();
    Token token;
    const cbor_decoder_result result = cbor_stream_decode(reinterpret_cast<cbor_data>(rest.data()),
                                                          static_cast<std::size_t>(rest.size()), &callbacks, &token);
    if (result.status != CBOR_DECODER_FINISHED)
        return {};
    rest = rest.sliced(static_cast<qsizetype>(result.read));
    return token;
}

} // namespace

FlatCborMapWriter::FlatCborMapWriter(std::size_t fieldCount, qsizetype expectedSize)
{
    m_bytes.reserve(expectedSize);
    addHead(cbor_encode_map_start, fieldCount);
}

void FlatCborMapWriter::add(const char* key, qint64 number)
{
    addKey(key);
    if (number >= 0)
        addHead(cbor_encode_uint, static_cast<std::uint64_t>(number));
    else
        addHead(cbor_encode_negint, static_cast<std::uint64_t>(-1 - number));
}

void FlatCborMapWriter::add(const char* key, const QByteArray& bytes)
{
    addKey(key);
    addHead(cbor_encode_bytestring_start, static_cast<std::size_t>(bytes.size()));
    m_bytes += bytes;
}

void FlatCborMapWriter::add(const char* key, std::nullptr_t)
{
    addKey(key);
    addHead(cbor_encode_null);
}

void FlatCborMapWriter::addKey(const char* key)
{
    addHead(cbor_encode_string_start, std::strlen(key));
    m_bytes += key;
}

template <typename Encode, typename... Value> void FlatCborMapWriter::addHead(Encode encode, Value... value)
{
    constexpr std::size_t longestHead = 9;
    std::array<unsigned char, longestHead> buffer{};
    const std::size_t size = encode(value..., buffer.data(), buffer.size());
    m_bytes.append(reinterpret_cast<const char*>(buffer.data()), static_cast<qsizetype>(size));
}

std::optional<FlatCborMap> FlatCborMap::parse(const QByteArray& bytes)
{
    QByteArrayView rest(bytes);
    const Token start = takeToken(rest);
    const auto* map = std::get_if<Token::MapStart>(&start.value);
    // Each field takes two bytes at least.
    if (!map || map->fieldCount > static_cast<std::size_t>(rest.size()) / 2)
        return std::nullopt;
    FlatCborMap result;
    result.m_fields.reserve(map->fieldCount);
    for (std::size_t field = 0; field < map->fieldCount; ++field) {
        const Token key = takeToken(rest);
        const Token value = takeToken(rest);
        const auto* text = std::get_if<Token::Text>(&key.value);
        if (!text)
            return std::nullopt;
        if (const auto* number = std::get_if<qint64>(&value.value))
            result.m_fields.push_back({ text->text, *number });
        else if (const auto* content = std::get_if<QByteArrayView>(&value.value))
            result.m_fields.push_back({ text->text, *content });
        else if (std::holds_alternative<std::nullptr_t>(value.value))
            result.m_fields.push_back({ text->text, nullptr });
        else
            return std::nullopt;
    }
    return rest.isEmpty() ? std::optional(std::move(result)) : std::nullopt;
}

template <typename Kind> const Kind* FlatCborMap::find(QByteArrayView key) const
{
    const auto field =
        std::find_if(m_fields.begin(), m_fields.end(), [&](const Field& each) { return each.key == key; });
    return field == m_fields.end() ? nullptr : std::get_if<Kind>(&field->value);
}

std::optional<qint64> FlatCborMap::number(QByteArrayView key) const
{
    const auto* value = find<qint64>(key);
    return value ? std::optional(*value) : std::nullopt;
}

std::optional<QByteArray> FlatCborMap::bytes(QByteArrayView key) const
{
    const auto* value = find<QByteArrayView>(key);
    return value ? std::optional(value->toByteArray()) : std::nullopt;
}

bool FlatCborMap::isNull(QByteArrayView key) const
{
    return find<std::nullptr_t>(key) != nullptr;
}

} // namespace nookle
