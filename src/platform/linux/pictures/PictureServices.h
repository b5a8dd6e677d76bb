#pragma once

#include "DecoderImageConverter.h"
#include "ImageDecoder.h"
#include "LinuxThumbnails.h"

namespace nookle {

class MainQueue;

/// Everything that has to do with images, on the user's desktop: its folders, its bus and its programs. Needs the
/// application object.
class PictureServices final {
public:
    /// `queue` must outlive this object.
    explicit PictureServices(MainQueue& queue);

    [[nodiscard]] Thumbnails& thumbnails() { return m_thumbnails; }
    [[nodiscard]] ImageConverter& converter() { return m_converter; }

private:
    /// One process for both.
    ImageDecoder m_decoder;
    DecoderImageConverter m_converter;
    LinuxThumbnails m_thumbnails;
};

} // namespace nookle
