#include "ContentDecoder.h"

#include <brotli/decode.h>
#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace nookle {

namespace {

inline constexpr std::size_t outputStep = 16'384;

class IdentityDecoder final : public ContentDecoder {
public:
    std::optional<QByteArray> decode(QByteArrayView bytes, qsizetype maximum) override
    {
        return bytes.first(std::min(bytes.size(), maximum)).toByteArray();
    }
};

/// Both "gzip" and "deflate", the second with and without the header that it should have.
class ZlibDecoder final : public ContentDecoder {
public:
    ZlibDecoder() = default;
    ZlibDecoder(const ZlibDecoder&) = delete;
    ZlibDecoder& operator=(const ZlibDecoder&) = delete;

    ~ZlibDecoder() override
    {
        if (m_isBegun)
            ::inflateEnd(&m_stream);
    }

    std::optional<QByteArray> decode(QByteArrayView bytes, qsizetype maximum) override
    {
        m_waiting.append(bytes);
        if (!m_isBegun && m_waiting.size() < 2)
            return QByteArray();
        if (!m_isBegun && !begin())
            return std::nullopt;
        const QByteArray input = std::exchange(m_waiting, {});
        return m_isAtEnd ? QByteArray() : inflate(input, maximum);
    }

private:
    [[nodiscard]] bool begin()
    {
        const auto first = std::uint8_t(m_waiting.at(0));
        const auto second = std::uint8_t(m_waiting.at(1));
        const bool isGzip = first == 0x1f && second == 0x8b;
        const bool isZlib = (first & 0x0fU) == Z_DEFLATED && (first * 256U + second) % 31U == 0;
        const int automaticHeader = MAX_WBITS + 32;
        m_isBegun = ::inflateInit2(&m_stream, isGzip || isZlib ? automaticHeader : -MAX_WBITS) == Z_OK;
        return m_isBegun;
    }

    [[nodiscard]] std::optional<QByteArray> inflate(const QByteArray& input, qsizetype maximum)
    {
        QByteArray output;
        // The interface takes no constant input, but does not change it.
        m_stream.next_in = const_cast<Bytef*>(reinterpret_cast<const Bytef*>(input.constData()));
        m_stream.avail_in = uInt(input.size());
        while (output.size() < maximum) {
            std::array<char, outputStep> step; // NOLINT(cppcoreguidelines-pro-type-member-init): written first
            m_stream.next_out = reinterpret_cast<Bytef*>(step.data());
            m_stream.avail_out = uInt(step.size());
            const int result = ::inflate(&m_stream, Z_NO_FLUSH);
            output.append(step.data(), qsizetype(step.size() - m_stream.avail_out));
            m_isAtEnd = result == Z_STREAM_END;
            if (m_isAtEnd || result == Z_BUF_ERROR || (result == Z_OK && m_stream.avail_out > 0))
                break;
            if (result != Z_OK)
                return std::nullopt;
        }
        output.truncate(maximum);
        return output;
    }

    z_stream m_stream{};
    bool m_isBegun = false;
    bool m_isAtEnd = false;
    QByteArray m_waiting;
};

struct FreeBrotli {
    void operator()(BrotliDecoderState* state) const { BrotliDecoderDestroyInstance(state); }
};

class BrotliDecoder final : public ContentDecoder {
public:
    std::optional<QByteArray> decode(QByteArrayView bytes, qsizetype maximum) override
    {
        if (!m_state)
            return std::nullopt;
        QByteArray output;
        const auto* input = reinterpret_cast<const std::uint8_t*>(bytes.data());
        auto left = std::size_t(bytes.size());
        while (output.size() < maximum) {
            std::array<std::uint8_t, outputStep> step; // NOLINT(cppcoreguidelines-pro-type-member-init): written first
            std::uint8_t* next = step.data();
            std::size_t room = step.size();
            const auto result = BrotliDecoderDecompressStream(m_state.get(), &left, &input, &room, &next, nullptr);
            output.append(reinterpret_cast<const char*>(step.data()), qsizetype(step.size() - room));
            if (result == BROTLI_DECODER_RESULT_ERROR)
                return std::nullopt;
            if (result != BROTLI_DECODER_RESULT_NEEDS_MORE_OUTPUT)
                break;
        }
        output.truncate(maximum);
        return output;
    }

private:
    std::unique_ptr<BrotliDecoderState, FreeBrotli> m_state{ BrotliDecoderCreateInstance(nullptr, nullptr, nullptr) };
};

} // namespace

std::unique_ptr<ContentDecoder> ContentDecoder::tryCreate(const QByteArray& encoding)
{
    const QByteArray name = encoding.trimmed().toLower();
    if (name.isEmpty() || name == "identity")
        return std::make_unique<IdentityDecoder>();
    if (name == "gzip" || name == "x-gzip" || name == "deflate")
        return std::make_unique<ZlibDecoder>();
    if (name == "br")
        return std::make_unique<BrotliDecoder>();
    return nullptr;
}

} // namespace nookle
