#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

namespace nookle {

// File names are bytes, not text. A file URL keeps them percent-encoded, and these functions are the only way in and
// out that loses none of them: QUrl's own conversions replace bytes that are not UTF-8.

/// The file URL of an absolute path.
[[nodiscard]] QUrl fileUrl(const QByteArray& path);

/// The path of a file URL on this machine; empty for every other URL, for one of another host, and for one whose path
/// holds a NUL.
[[nodiscard]] QByteArray filePath(const QUrl& url);

/// The same file's URL with dot segments resolved and without a slash at its end.
[[nodiscard]] QUrl standardized(const QUrl& fileUrl);

/// Its path; empty where `filePath` is.
[[nodiscard]] QByteArray standardizedPath(const QUrl& fileUrl);

/// The last component of the path, for showing it: bytes that are not UTF-8 are replaced.
[[nodiscard]] QString lastPathComponent(const QUrl& fileUrl);

/// The same of a standardised path.
[[nodiscard]] QString lastPathComponent(const QByteArray& standardizedPath);

/// The URL of `name` inside `folder`.
[[nodiscard]] QUrl child(const QUrl& folder, const QString& name);

} // namespace nookle
