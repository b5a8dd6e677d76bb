#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>
#include <QUuid>

#include <optional>

namespace nookle {

/// An image that a drop delivered, in one of the offered formats.
struct DroppedImage {
    QByteArray bytes;
    /// The MIME type, such as "image/png".
    QString type;
    /// The name that the source suggests for its file, or what it says about the image; empty when it says nothing.
    QString suggestedName;
};

/// The file name of a copy: the suggested name, or "Image". The extension of the image's type is added unless the name
/// has the extension of an image. The name contains no "/" and is never too long for a file system.
[[nodiscard]] QString imageFileName(const DroppedImage& image);

/// The name of the folder of a copy.
[[nodiscard]] QByteArray imageCopyFolder(const QUuid& id);

/// Writes the image unchanged into a new folder of its own in the system's temporary folder. The caller must remove
/// folder and copy. A failure is logged, and leaves nothing behind.
[[nodiscard]] std::optional<QUrl> writeImageCopy(const DroppedImage& image);

} // namespace nookle
