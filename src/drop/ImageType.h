#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <optional>

namespace nookle {

/// The MIME type of the image in `bytes`, such as "image/png"; none if they are not an image. The type `claimed` by the
/// source matters only for SVG, which cannot always be recognized by its first bytes.
[[nodiscard]] std::optional<QString> imageType(const QByteArray& bytes, const QString& claimed = QString());

/// Whether the file name `name` stands for image types only.
[[nodiscard]] bool isImageName(const QString& name);

/// Whether every program takes `file` for an image: its bytes are an image, and its name stands for image types or for
/// no type at all. Reads the beginning of the file.
[[nodiscard]] bool isImageFile(const QUrl& file);

} // namespace nookle
