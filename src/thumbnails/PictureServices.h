#pragma once

#include "DecoderImageConverter.h"
#include "ImageDecoder.h"
#include "LinuxThumbnailGenerator.h"
#include "LocalThumbnailGenerator.h"

#include <memory>

namespace nookle {

class MainQueue;
class Mounts;

/// Makes and owns the image services of the program, with the desktop's folders, session bus and thumbnailer programs.
/// Needs the application object.
class PictureServices final {
public:
    /// `queue` must outlive this object.
    PictureServices(std::shared_ptr<Mounts> mounts, MainQueue& queue);

    [[nodiscard]] ThumbnailGenerator& thumbnails() { return m_localThumbnails; }
    [[nodiscard]] ImageConverter& converter() { return m_converter; }

private:
    /// The converter and the thumbnails share one decoder process.
    ImageDecoder m_decoder;
    DecoderImageConverter m_converter;
    LinuxThumbnailGenerator m_thumbnails;
    LocalThumbnailGenerator m_localThumbnails;
};

} // namespace nookle
