#pragma once

#include "ImageConverter.h"

namespace nookle {

class ImageDecoder;

/// Converts images in the process of an `ImageDecoder`, which must outlive this object.
class DecoderImageConverter final : public ImageConverter {
public:
    explicit DecoderImageConverter(ImageDecoder& decoder);

    std::unique_ptr<Cancellable> convertToPng(Source source, int maximumSide, Completion completion) override;

private:
    ImageDecoder& m_decoder;
};

} // namespace nookle
