#pragma once

#include "FileDescriptor.h"

#include <QByteArray>

#include <optional>

namespace nookle {

/// Opens `path` itself, be it a file, a folder or a link, without reading from it and without waiting for anything.
[[nodiscard]] FileDescriptor openInPlace(const QByteArray& path);

/// What stays the same about a file when it gets another name or folder on its volume. Times are nanoseconds since
/// 1970.
struct FileIdentity {
    quint64 inode = 0;
    /// The kind bits of the mode.
    quint32 kind = 0;
    /// None on file systems that do not record it.
    std::optional<qint64> birthTime;
    quint64 size = 0;
    qint64 modificationTime = 0;
    /// The file system's own name for the inode and its generation; empty where it has none that lasts.
    int handleType = 0;
    QByteArray handle;

    /// The identity of what `descriptor` is open on.
    [[nodiscard]] static std::optional<FileIdentity> of(const FileDescriptor& descriptor);

    /// The identity of what stands at `path`, of a link itself; none when nothing does.
    [[nodiscard]] static std::optional<FileIdentity> of(const QByteArray& path);

    /// The same, but never with a handle, which takes several times as long.
    [[nodiscard]] static std::optional<FileIdentity> withoutHandle(const QByteArray& path);

    /// Whether both belong to one file. Numbers of inodes are used again, so an equal inode alone is not enough.
    [[nodiscard]] bool matches(const FileIdentity& other) const;

    bool operator==(const FileIdentity&) const = default;
};

} // namespace nookle
