#pragma once

#include "FileDescriptor.h"

#include <QByteArray>
#include <QtGlobal>

#include <atomic>
#include <optional>

namespace nookle {

/// A regular file that is open for reading.
struct RegularFile {
    FileDescriptor descriptor;
    /// Seconds since 1970.
    qint64 modificationTime = 0;
    qint64 size = 0;

    enum class Links { follow, refuse };

    /// Opens the file at `path`. Nothing for all that is no regular file, and for what cannot be read. Never waits for
    /// anybody at the other end of a pipe, only for the file system.
    [[nodiscard]] static std::optional<RegularFile> open(const QByteArray& path, Links links);

    /// A file in memory that holds `content` and cannot be changed any more.
    [[nodiscard]] static std::optional<RegularFile> inMemory(const QByteArray& content);

    /// Whether this is a file in memory that cannot be changed any more.
    [[nodiscard]] bool isSealed() const;

    /// A file in memory that holds what this one holds and cannot be changed any more. Nothing for more than `longest`
    /// bytes, for what cannot be read, and once `isWanted` is false. Waits for the disk; for any thread.
    [[nodiscard]] std::optional<RegularFile> sealedCopy(qint64 longest, const std::atomic<bool>& isWanted) const;
};

} // namespace nookle
