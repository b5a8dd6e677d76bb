#pragma once

#include <QByteArray>

#include <optional>

namespace nookle {

/// A file in a Trash folder. All paths are bytes.
struct TrashedFile {
    QByteArray path;
    /// The path of the note that says where the file was.
    QByteArray infoPath;
    /// As the note has it. Later dates are greater.
    QByteArray deletionDate;

    /// The file that was moved last from `original` to the Trash folder `files` (a path that ends in "/files"). None if
    /// it is not there any more. Looks only at names that begin like the original name, as the Trash gives them.
    [[nodiscard]] static std::optional<TrashedFile> find(const QByteArray& files, const QByteArray& original);
};

} // namespace nookle
