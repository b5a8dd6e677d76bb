#pragma once

#include "ImageCopy.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace nookle {

class DropPayload;

/// Whether a format carries bytes of a kind that the source does not name.
[[nodiscard]] bool isUnnamedFormat(const QString& format);

/// Whether a format is an image type, or "application/octet-stream", whose bytes may be an image.
[[nodiscard]] bool isImageFormat(const QString& format);

/// Those of the formats that are image types, the best one first.
[[nodiscard]] QStringList namedImageFormats(QStringList formats);

/// Whether a format may hold a name for an image beside it.
[[nodiscard]] bool isImageNameFormat(const QString& format);

/// The drop's image in the best format that delivers one. The bytes decide whether they are an image, not the format's
/// name.
[[nodiscard]] std::optional<DroppedImage> loadDropImage(const DropPayload& payload);

} // namespace nookle
