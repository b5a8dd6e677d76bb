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

    /// Opens the file at `path`. None if it is not a regular file or cannot be read. Never waits for the other end of a
    /// pipe, only for the file system.
    [[nodiscard]] static std::optional<RegularFile> open(const QByteArray& path, Links links);

    /// A sealed file in memory that holds `content`: nobody can change it.
    [[nodiscard]] static std::optional<RegularFile> inMemory(const QByteArray& content);

    /// Whether this is a sealed file in memory.
    [[nodiscard]] bool isSealed() const;

    /// A copy of this file as a sealed file in memory. None if the file has more than `longest` bytes, if it cannot be
    /// read, or as soon as `isWanted` is false. Waits for the disk. Any thread.
    [[nodiscard]] std::optional<RegularFile> sealedCopy(qint64 longest, const std::atomic<bool>& isWanted) const;
};

} // namespace nookle
