#pragma once

#include "FileIdentity.h"

#include <QByteArray>

#include <optional>

namespace nookle {

/// What the bytes of a file reference hold: where the file was, and how to know it again.
struct FileReference {
    QByteArray path;
    /// Empty, and that of no file, while the file could not be looked at.
    FileIdentity identity;

    [[nodiscard]] bool hasIdentity() const { return identity.kind != 0; }

    /// The same reference always gives the same bytes.
    [[nodiscard]] QByteArray encode() const;

    /// Reads the forms of all versions of the program. Nothing for any other bytes; safe with all.
    [[nodiscard]] static std::optional<FileReference> decode(const QByteArray& bytes);

    bool operator==(const FileReference&) const = default;
};

} // namespace nookle
