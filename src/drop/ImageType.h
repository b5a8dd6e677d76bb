#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <optional>

namespace nookle {

/// The type of the image that `bytes` are, such as "image/png"; nothing for all else, whatever it is called. What is
/// `claimed` of the bytes counts for a drawing alone, whose text may begin with anything.
[[nodiscard]] std::optional<QString> imageType(const QByteArray& bytes, const QString& claimed = QString());

/// Whether `name` says that its file is an image, and nothing else.
[[nodiscard]] bool isImageName(const QString& name);

/// Whether `file` is an image, and every program takes it for one: by its bytes, and by its name unless that says
/// nothing. Reads the beginning of the file.
[[nodiscard]] bool isImageFile(const QUrl& file);

} // namespace nookle
