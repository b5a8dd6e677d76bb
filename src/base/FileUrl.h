#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

namespace nookle {

// File names are bytes, not text. A file URL keeps them percent-encoded, and these functions are the only conversion
// that keeps every byte: QUrl's own conversions replace bytes that are not UTF-8.

/// The file URL of an absolute path.
[[nodiscard]] QUrl fileUrl(const QByteArray& path);

/// The path of a file URL of this machine. Empty for other URLs, for files of other hosts, and for a path that holds a
/// NUL.
[[nodiscard]] QByteArray filePath(const QUrl& url);

/// The same file's URL with dot segments resolved and without a slash at its end.
[[nodiscard]] QUrl standardized(const QUrl& fileUrl);

/// The path of the standardized URL; empty where `filePath` is empty.
[[nodiscard]] QByteArray standardizedPath(const QUrl& fileUrl);

/// The last component of the path, for display: bytes that are not UTF-8 are replaced. "/" for the root folder.
[[nodiscard]] QString lastPathComponent(const QUrl& fileUrl);

/// The last component of a standardized path, for display.
[[nodiscard]] QString lastPathComponent(const QByteArray& standardizedPath);

/// The URL of `name` inside `folder`.
[[nodiscard]] QUrl child(const QUrl& folder, const QString& name);

} // namespace nookle
