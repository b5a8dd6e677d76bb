#include "ReplyReader.h"

#include <cstddef>
#include <cstdint>

using namespace nookle;

namespace {

/// Feeds `bytes` to a reader in pieces of the size `piece`, and takes all that comes out.
void read(QByteArrayView bytes, qsizetype piece, const DecodeRequest& request)
{
    ReplyReader reader;
    bool isGreeted = false;
    while (!bytes.isEmpty()) {
        const qsizetype count = qMin(piece, bytes.size());
        reader.append(bytes.first(count));
        bytes = bytes.sliced(count);
        if (!isGreeted) {
            const auto greeting = reader.takeGreeting();
            if (std::holds_alternative<ReplyReader::Nonsense>(greeting))
                return;
            isGreeted = std::holds_alternative<ReplyReader::Greeted>(greeting);
        }
        while (isGreeted) {
            const auto next = reader.takeReply(request);
            if (std::holds_alternative<ReplyReader::Nonsense>(next))
                return;
            const auto* reply = std::get_if<DecodeReply>(&next);
            if (!reply)
                break;
            const bool fits = reply->width <= request.side && reply->height <= request.side
                && reply->pixels.size() == qsizetype(reply->width) * reply->height * 4;
            if (!fits)
                __builtin_trap();
        }
    }
}

} // namespace

/// Whatever a decoder sends, what comes out of it fits the request. The first byte chooses the request, the second the
/// size of the pieces that the rest comes in.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2)
        return 0;
    DecodeRequest request;
    request.purpose = (data[0] & 1) != 0 ? DecodeRequest::Purpose::conversion : DecodeRequest::Purpose::thumbnail;
    request.side = 1 + data[0] / 2;
    request.savedSide = (data[0] & 2) != 0 ? 128 : 0;
    const qsizetype piece = 1 + data[1];
    read(QByteArrayView(reinterpret_cast<const char*>(data) + 2, static_cast<qsizetype>(size) - 2), piece, request);
    return 0;
}
