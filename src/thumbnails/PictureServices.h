#pragma once

#include "DecoderImageConverter.h"
#include "ImageDecoder.h"
#include "LinuxThumbnails.h"
#include "LocalThumbnails.h"

#include <memory>

namespace nookle {

class MainQueue;
class Mounts;

/// Everything that has to do with images, on the user's desktop: its folders, its bus and its programs. Needs the
/// application object.
class PictureServices final {
public:
    /// `queue` must outlive this object.
    PictureServices(std::shared_ptr<Mounts> mounts, MainQueue& queue);

    [[nodiscard]] Thumbnails& thumbnails() { return m_localThumbnails; }
    [[nodiscard]] ImageConverter& converter() { return m_converter; }

private:
    /// One process for both.
    ImageDecoder m_decoder;
    DecoderImageConverter m_converter;
    LinuxThumbnails m_thumbnails;
    LocalThumbnails m_localThumbnails;
};

} // namespace nookle
