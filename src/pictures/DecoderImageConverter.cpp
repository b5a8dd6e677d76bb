#include "DecoderImageConverter.h"

#include "FileUrl.h"
#include "ImageDecoder.h"

#include <algorithm>
#include <utility>

namespace nookle {

namespace {

// In pixels. The decoder has too little memory for images with a longer side.
inline constexpr int largestSide = 8192;

[[nodiscard]] std::optional<RegularFile> opened(const ImageConverter::Source& source)
{
    if (const auto* bytes = std::get_if<QByteArray>(&source))
        return RegularFile::inMemory(*bytes);
    const QByteArray path = filePath(std::get<QUrl>(source));
    return path.isEmpty() ? std::nullopt : RegularFile::open(path, RegularFile::Links::follow);
}

} // namespace

DecoderImageConverter::DecoderImageConverter(ImageDecoder& decoder)
    : m_decoder(decoder)
{
}

std::unique_ptr<Cancellable> DecoderImageConverter::convertToPng(Source source, int maximumSide, Completion completion)
{
    DecodeRequest request;
    request.purpose = DecodeRequest::Purpose::conversion;
    request.side = std::clamp(maximumSide, 1, largestSide);
    return m_decoder.decode(request, opened(source), [completion = std::move(completion)](const auto& reply) {
        completion(reply ? std::optional(reply->png) : std::nullopt);
    });
}

} // namespace nookle
