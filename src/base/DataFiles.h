#pragma once

#include "Failure.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>

#include <optional>

namespace nookle {

// What the shelf does to files on disk. Paths are absolute, and bytes: names need not be UTF-8. What these functions
// create is for the user alone: 0700 for folders, 0600 for files.

/// Makes the folder and the folders above it, as far as they do not exist.
[[nodiscard]] std::optional<Failure> makeFolder(const QByteArray& path);

/// Puts `bytes` in the place of the file at `path`, or leaves that as it was. An existing file keeps its permissions.
[[nodiscard]] std::optional<Failure> writeAtomically(const QByteArray& path, const QByteArray& bytes);

/// Moves a file, also to another file system; there it has reached the disk before the old one goes. Nothing may exist
/// at `to`. After a failure the file is where it was, and nothing is at `to`. Folders can be moved only within a file
/// system.
[[nodiscard]] std::optional<Failure> relocateFile(const QByteArray& from, const QByteArray& to);

/// The names in the folder, in no order; none while it does not exist. No list at all if it cannot be read to its end.
[[nodiscard]] std::optional<QList<QByteArray>> entriesOf(const QByteArray& folder);

/// Takes a folder of the user's own away from everybody else, as far as the file system can do that.
void keepPrivate(const QByteArray& folder);

/// Removes the files in the folder that a crash left half written and that nobody has written to since that time.
void removeUnfinished(const QByteArray& folder, const QDateTime& unchangedSince);

} // namespace nookle
