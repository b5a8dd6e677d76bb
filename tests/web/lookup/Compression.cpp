#include "Compression.h"

#include <brotli/encode.h>
#include <zlib.h>

#include <cstddef>
#include <cstdint>

namespace nookle {

namespace {

[[nodiscard]] QByteArray deflated(const QByteArray& bytes, int windowBits)
{
    z_stream stream{};
    ::deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, windowBits, 9, Z_DEFAULT_STRATEGY);
    QByteArray output(qsizetype(::deflateBound(&stream, uLong(bytes.size()))), '\0');
    QByteArray input = bytes;
    stream.next_in = reinterpret_cast<Bytef*>(input.data());
    stream.avail_in = uInt(input.size());
    stream.next_out = reinterpret_cast<Bytef*>(output.data());
    stream.avail_out = uInt(output.size());
    ::deflate(&stream, Z_FINISH);
    output.truncate(qsizetype(stream.total_out));
    ::deflateEnd(&stream);
    return output;
}

[[nodiscard]] QByteArray withBrotli(const QByteArray& bytes)
{
    std::size_t size = BrotliEncoderMaxCompressedSize(std::size_t(bytes.size()));
    QByteArray output(qsizetype(size), '\0');
    BrotliEncoderCompress(5, BROTLI_DEFAULT_WINDOW, BROTLI_MODE_GENERIC, std::size_t(bytes.size()),
                          reinterpret_cast<const std::uint8_t*>(bytes.constData()), &size,
                          reinterpret_cast<std::uint8_t*>(output.data()));
    output.truncate(qsizetype(size));
    return output;
}

} // namespace

QByteArray compressed(const QByteArray& bytes, Compression compression)
{
    switch (compression) {
    case Compression::gzip:
        return deflated(bytes, MAX_WBITS + 16);
    case Compression::zlib:
        return deflated(bytes, MAX_WBITS);
    case Compression::rawDeflate:
        return deflated(bytes, -MAX_WBITS);
    case Compression::brotli:
        return withBrotli(bytes);
    }
    return {};
}

} // namespace nookle
