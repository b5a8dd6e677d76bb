#include "ReplyReader.h"

namespace nookle {

namespace {

inline constexpr QByteArrayView pngSignature("\x89PNG\r\n\x1a\n");

} // namespace

void ReplyReader::append(QByteArrayView bytes)
{
    m_bytes.append(bytes.data(), bytes.size());
}

std::variant<ReplyReader::Incomplete, ReplyReader::Nonsense, ReplyReader::Greeted> ReplyReader::takeGreeting()
{
    if (!decoderGreeting.startsWith(m_bytes.left(decoderGreeting.size())))
        return Nonsense();
    if (m_bytes.size() < decoderGreeting.size())
        return Incomplete();
    m_bytes.remove(0, decoderGreeting.size());
    return Greeted();
}

std::variant<ReplyReader::Incomplete, ReplyReader::Nonsense, DecodeReply>
ReplyReader::takeReply(const DecodeRequest& request)
{
    if (m_bytes.size() < DecodeReplyHeader::encodedSize)
        return Incomplete();
    const auto header = DecodeReplyHeader::decode(m_bytes);
    if (!header || !header->fits(request))
        return Nonsense();
    const qsizetype pixelsEnd = DecodeReplyHeader::encodedSize + header->pixelBytes;
    const qsizetype end = pixelsEnd + header->pngBytes;
    if (m_bytes.size() < end)
        return Incomplete();
    DecodeReply reply;
    reply.width = static_cast<int>(header->width);
    reply.height = static_cast<int>(header->height);
    reply.pixels = m_bytes.mid(DecodeReplyHeader::encodedSize, header->pixelBytes);
    reply.png = m_bytes.mid(pixelsEnd, header->pngBytes);
    m_bytes.remove(0, end);
    if (!reply.png.isEmpty() && !reply.png.startsWith(pngSignature))
        return Nonsense();
    return reply;
}

} // namespace nookle
