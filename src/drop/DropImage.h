#pragma once

#include "ImageCopy.h"

#include <QString>

#include <optional>

namespace nookle {

class DropPayload;

/// Whether a format is an image, or bytes of an unnamed kind that may turn out to be one.
[[nodiscard]] bool isImageFormat(const QString& format);

/// The drop's image in the best format that delivers an image: its bytes say what it is, not the format's name.
[[nodiscard]] std::optional<DroppedImage> loadDropImage(const DropPayload& payload);

} // namespace nookle
