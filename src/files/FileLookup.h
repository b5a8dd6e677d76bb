#pragma once

#include "FileIdentity.h"

#include <QByteArray>

#include <optional>

namespace nookle {

class FilePlaces;
struct FileReference;

/// A file, folder or link that exists at a path.
struct StandingFile {
    /// Opened by `openInPlace`; closed if even that failed.
    FileDescriptor descriptor;
    /// Without a handle where no descriptor was left to open the file.
    std::optional<FileIdentity> identity;
};

/// Looks for files in a few likely places. Accesses nothing that `places` does not allow. Any thread.
class FileLookup final {
public:
    /// `dataHome` is the folder that holds the user's Trash. Both arguments must outlive this object.
    FileLookup(const FilePlaces& places, const QByteArray& dataHome)
        : m_places(places)
        , m_dataHome(dataHome)
    {
    }

    /// The file at `path`; none if nothing is there. A link without a target counts as nothing. The caller has checked
    /// that `path` may be accessed.
    [[nodiscard]] std::optional<StandingFile> at(const QByteArray& path) const;

    /// Whether something exists at `path`, links followed. Also true if `path` must not be accessed.
    [[nodiscard]] bool exists(const QByteArray& path) const;

    /// The new path of a file that is gone from its place: a new name in the same folder, or a place in the Trash of
    /// its volume. None if it is in neither.
    [[nodiscard]] std::optional<QByteArray> newPath(const FileReference& reference) const;

private:
    [[nodiscard]] std::optional<QByteArray> findIn(const QByteArray& folder, const FileIdentity& identity) const;

    const FilePlaces& m_places;
    const QByteArray& m_dataHome;
};

} // namespace nookle
