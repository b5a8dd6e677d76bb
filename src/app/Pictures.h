#pragma once

#include "DecoderImageConverter.h"
#include "ImageDecoder.h"
#include "LinuxThumbnails.h"

namespace nookle {

class MainQueue;

/// Everything that decodes images, on top of one decoder process.
class Pictures final {
public:
    /// `queue` must outlive this object.
    explicit Pictures(MainQueue& queue);

    [[nodiscard]] ImageConverter& converter() { return m_converter; }
    [[nodiscard]] Thumbnails& thumbnails() { return m_thumbnails; }

private:
    ImageDecoder m_decoder;
    DecoderImageConverter m_converter;
    LinuxThumbnails m_thumbnails;
};

} // namespace nookle
