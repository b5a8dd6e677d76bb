#pragma once

#include "FileIdentity.h"

#include <QByteArray>

#include <optional>

namespace nookle {

/// The decoded form of a file reference: the file's path, and the identity by which to recognize it.
struct FileReference {
    QByteArray path;
    /// Left at its defaults if the file could not be accessed when the reference was made.
    FileIdentity identity;

    [[nodiscard]] bool hasIdentity() const { return identity.kind != 0; }

    /// The same reference always gives the same bytes.
    [[nodiscard]] QByteArray encode() const;

    /// Reads the formats of all versions of the program. None for any other bytes; safe with hostile ones.
    [[nodiscard]] static std::optional<FileReference> decode(const QByteArray& bytes);

    bool operator==(const FileReference&) const = default;
};

} // namespace nookle
