#pragma once

#include "Failure.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>

#include <optional>

namespace nookle {

// File operations of the shelf. Paths are absolute, and bytes: names need not be UTF-8. Only the user can access what
// these functions create: folders get mode 0700, files 0600.

/// Makes the folder and those of its parent folders that do not exist.
[[nodiscard]] std::optional<Failure> makeFolder(const QByteArray& path);

/// Replaces the file at `path` by one with the content `bytes`. After a failure the old file is unchanged. An existing
/// file keeps its permissions.
[[nodiscard]] std::optional<Failure> writeAtomically(const QByteArray& path, const QByteArray& bytes);

/// Moves a file. On a move to another file system, the copy is flushed to disk before the old file is removed. Nothing
/// may exist at `to`. After a failure the file is where it was, and nothing is at `to`. Folders can be moved only
/// within a file system.
[[nodiscard]] std::optional<Failure> relocateFile(const QByteArray& from, const QByteArray& to);

/// The names in the folder, unsorted. An empty list if the folder does not exist; no list if it cannot be read
/// completely.
[[nodiscard]] std::optional<QList<QByteArray>> entriesOf(const QByteArray& folder);

/// Removes all access of other users to a folder that the user owns, if the file system supports permissions.
void keepPrivate(const QByteArray& folder);

/// Removes the half-written files that a crash left in the folder, if they were last changed before `unchangedSince`.
void removeUnfinished(const QByteArray& folder, const QDateTime& unchangedSince);

} // namespace nookle
