#include "ImageDecode.h"

#include <QBuffer>

#include <cstddef>
#include <cstdint>

using namespace nookle;

namespace {

void decode(const QByteArray& bytes, DecodeRequest::Purpose purpose, int side, int savedSide)
{
    DecodeRequest request;
    request.purpose = purpose;
    request.side = side;
    request.savedSide = savedSide;
    request.uri = "file:///a.png";
    request.modificationTime = 5;
    QBuffer file;
    file.setData(bytes);
    file.open(QIODevice::ReadOnly);
    const QByteArray reply = decodeImage(file, request).encode();
    if (quint32(reply.size()) > DecodeReply::longest(request) || !DecodeReply::decode(reply, request))
        __builtin_trap();
}

} // namespace

/// A chunk of an image may claim any length. The decoder's process is refused what is beyond its limit, and so is this.
extern "C" const char* __asan_default_options()
{
    return "allocator_may_return_null=1:max_allocation_size_mb=512";
}

/// Whatever the image is, the answer is one that the program takes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    decode(bytes, DecodeRequest::Purpose::thumbnail, 104, 128);
    decode(bytes, DecodeRequest::Purpose::savedThumbnail, 104, 0);
    decode(bytes, DecodeRequest::Purpose::conversion, 512, 0);
    return 0;
}
