#pragma once

#include "FileDescriptor.h"

#include <QByteArray>

#include <optional>

namespace nookle {

/// Opens the file, folder or link at `path` itself, with O_PATH: it cannot be read, and a pipe does not block.
[[nodiscard]] FileDescriptor openInPlace(const QByteArray& path);

/// The properties of a file that stay the same when it is renamed or moved on its volume. Times are in nanoseconds
/// since 1970.
struct FileIdentity {
    quint64 inode = 0;
    /// The file type bits of the mode (S_IFMT).
    quint32 kind = 0;
    /// None on file systems that do not record it.
    std::optional<qint64> birthTime;
    quint64 size = 0;
    qint64 modificationTime = 0;
    /// The file handle: the file system's identifier for the inode and its generation. Empty if the file system has no
    /// handle that stays valid.
    int handleType = 0;
    QByteArray handle;

    /// The identity of the file behind `descriptor`.
    [[nodiscard]] static std::optional<FileIdentity> of(const FileDescriptor& descriptor);

    /// The identity of the file at `path`. For a link, that of the link itself. None if nothing is at `path`.
    [[nodiscard]] static std::optional<FileIdentity> of(const QByteArray& path);

    /// The identity of the file at `path` without its handle. Several times as fast as `of`.
    [[nodiscard]] static std::optional<FileIdentity> withoutHandle(const QByteArray& path);

    /// Whether both identities belong to the same file. Inode numbers are reused, so an equal inode alone is not
    /// enough.
    [[nodiscard]] bool matches(const FileIdentity& other) const;

    bool operator==(const FileIdentity&) const = default;
};

} // namespace nookle
