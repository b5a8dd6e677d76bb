#include "DecoderProtocol.h"
#include "FrameReader.h"
#include "LookupProtocol.h"

#include <cstddef>
#include <cstdint>
#include <functional>

using namespace nookle;

namespace {

/// What one of the helpers may send, and what is done with a message of it.
struct Helper {
    QByteArrayView greeting;
    quint32 longestReply;
    std::function<void(const QByteArray&)> takeReply;
};

[[nodiscard]] Helper decoder(DecodeRequest::Purpose purpose, int side, int savedSide)
{
    DecodeRequest request;
    request.purpose = purpose;
    request.side = side;
    request.savedSide = savedSide;
    return { decoderGreeting, DecodeReply::longest(request), [request](const QByteArray& message) {
                const auto reply = DecodeReply::decode(message, request);
                if (!reply)
                    return;
                const bool fits = reply->width <= request.side && reply->height <= request.side
                    && reply->pixels.size() == qsizetype(reply->width) * reply->height * 4;
                if (!fits || DecodeReply::decode(reply->encode(), request) != reply)
                    __builtin_trap();
            } };
}

[[nodiscard]] Helper lookup(LookupRequest::Purpose purpose)
{
    LookupRequest request;
    request.purpose = purpose;
    return { lookupGreeting, LookupReply::longest, [request](const QByteArray& message) {
                const auto reply = LookupReply::decode(message, request);
                if (!reply)
                    return;
                const bool isForPage = request.purpose == LookupRequest::Purpose::page;
                const bool fits = reply->places.size() <= LookupReply::mostPlaces
                    && reply->icon.size() <= LookupReply::largestIcon
                    && (isForPage ? reply->icon.isEmpty() : !reply->title && reply->places.isEmpty());
                if (!fits || LookupReply::decode(reply->encode(), request) != reply)
                    __builtin_trap();
            } };
}

/// The lower half of the choices is the lookup of pages, the upper half the decoder with requests of many sizes.
[[nodiscard]] Helper chosenHelper(std::uint8_t choice)
{
    if (choice < 128)
        return lookup((choice & 1) != 0 ? LookupRequest::Purpose::icon : LookupRequest::Purpose::page);
    const auto purpose = (choice & 1) != 0 ? DecodeRequest::Purpose::conversion : DecodeRequest::Purpose::thumbnail;
    return decoder(purpose, 1 + (choice - 128) / 2, (choice & 2) != 0 ? 128 : 0);
}

/// Feeds `bytes` to a reader in pieces of the size `piece`, and takes all that comes out.
void read(QByteArrayView bytes, qsizetype piece, const Helper& helper)
{
    FrameReader reader;
    bool isGreeted = false;
    while (!bytes.isEmpty()) {
        const qsizetype count = qMin(piece, bytes.size());
        reader.append(bytes.first(count));
        bytes = bytes.sliced(count);
        if (!isGreeted) {
            const auto greeting = reader.takeGreeting(helper.greeting);
            if (std::holds_alternative<FrameReader::Nonsense>(greeting))
                return;
            isGreeted = std::holds_alternative<FrameReader::Greeted>(greeting);
        }
        while (isGreeted) {
            const auto next = reader.takeMessage(helper.longestReply);
            if (std::holds_alternative<FrameReader::Nonsense>(next))
                return;
            const auto* const message = std::get_if<QByteArray>(&next);
            if (!message)
                break;
            helper.takeReply(*message);
        }
    }
}

} // namespace

/// Whatever a helper sends, what comes out of it fits the request. The first byte chooses the helper and the request,
/// the second the size of the pieces that the rest comes in.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2)
        return 0;
    const qsizetype piece = 1 + data[1];
    const QByteArrayView bytes(reinterpret_cast<const char*>(data) + 2, static_cast<qsizetype>(size) - 2);
    read(bytes, piece, chosenHelper(data[0]));
    return 0;
}
