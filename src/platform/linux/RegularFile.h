#pragma once

#include "FileDescriptor.h"

#include <QByteArray>
#include <QtGlobal>

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
};

} // namespace nookle
