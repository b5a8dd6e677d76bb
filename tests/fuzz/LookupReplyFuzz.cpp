#include "FrameReader.h"
#include "LookupProtocol.h"

#include <cstddef>
#include <cstdint>

using namespace nookle;

namespace {

void check(const LookupReply& reply, const LookupRequest& request)
{
    const bool isForPage = request.purpose == LookupRequest::Purpose::page;
    const bool fits = reply.places.size() <= LookupReply::mostPlaces && reply.icon.size() <= LookupReply::largestIcon
        && (isForPage ? reply.icon.isEmpty() : !reply.title && reply.places.isEmpty());
    if (!fits || LookupReply::decode(reply.encode(), request) != reply)
        __builtin_trap();
}

/// Feeds `bytes` to a reader in pieces of the size `piece`, and takes all that comes out.
void read(QByteArrayView bytes, qsizetype piece, const LookupRequest& request)
{
    FrameReader reader;
    bool isGreeted = false;
    while (!bytes.isEmpty()) {
        const qsizetype count = qMin(piece, bytes.size());
        reader.append(bytes.first(count));
        bytes = bytes.sliced(count);
        if (!isGreeted) {
            const auto greeting = reader.takeGreeting(lookupGreeting);
            if (std::holds_alternative<FrameReader::Nonsense>(greeting))
                return;
            isGreeted = std::holds_alternative<FrameReader::Greeted>(greeting);
        }
        while (isGreeted) {
            const auto next = reader.takeMessage(LookupReply::longest);
            if (std::holds_alternative<FrameReader::Nonsense>(next))
                return;
            const auto* const message = std::get_if<QByteArray>(&next);
            if (!message)
                break;
            if (const auto reply = LookupReply::decode(*message, request))
                check(*reply, request);
        }
    }
}

} // namespace

/// Whatever the helper sends, what comes out of it fits the request. The first byte chooses the request, the second the
/// size of the pieces that the rest comes in.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2)
        return 0;
    LookupRequest request;
    request.purpose = (data[0] & 1) != 0 ? LookupRequest::Purpose::icon : LookupRequest::Purpose::page;
    const qsizetype piece = 1 + data[1];
    read(QByteArrayView(reinterpret_cast<const char*>(data) + 2, static_cast<qsizetype>(size) - 2), piece, request);
    return 0;
}
