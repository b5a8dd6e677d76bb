#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>
#include <QUuid>

#include <optional>

namespace nookle {

/// An image that a drop delivered, in one of the formats that it was offered in.
struct DroppedImage {
    QByteArray bytes;
    /// The name of the format, such as "image/png".
    QString type;
    /// The name that the source suggests for its file; empty when it suggests none.
    QString suggestedName;
};

/// The file name of a copy: the suggested name, or "Image", with an extension that says what it is unless it has one of
/// an image. Never leads out of its folder, and is never too long for a file system.
[[nodiscard]] QString imageFileName(const DroppedImage& image);

/// The name of the folder of a copy.
[[nodiscard]] QByteArray imageCopyFolder(const QUuid& id);

/// Writes the image as it is into a new folder of its own in the system's temporary folder. Folder and copy are the
/// caller's. A failure is logged, and leaves nothing behind.
[[nodiscard]] std::optional<QUrl> writeImageCopy(const DroppedImage& image);

} // namespace nookle
