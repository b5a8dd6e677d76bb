#pragma once

#include "FileIdentity.h"

#include <QByteArray>

#include <optional>

namespace nookle {

class FilePlaces;
struct FileReference;

/// A file, folder or link that stands at a path.
struct StandingFile {
    /// Closed when the file cannot be opened, not even in place.
    FileDescriptor descriptor;
    std::optional<FileIdentity> identity;
};

/// Looks for files where a look is cheap, and asks nothing that `places` does not allow. Any thread.
class FileLookup final {
public:
    /// `dataHome` is the folder that holds the user's Trash. Both must outlive this.
    FileLookup(const FilePlaces& places, const QByteArray& dataHome)
        : m_places(places)
        , m_dataHome(dataHome)
    {
    }

    /// What stands at `path`, which may be looked at. A link that leads nowhere counts as nothing.
    [[nodiscard]] std::optional<StandingFile> at(const QByteArray& path) const;

    /// Whether `path` leads somewhere; also true when that cannot be asked.
    [[nodiscard]] bool exists(const QByteArray& path) const;

    /// Where the file went that is gone from its place: under another name in the same folder, or to the Trash of its
    /// volume.
    [[nodiscard]] std::optional<QByteArray> newPath(const FileReference& reference) const;

private:
    [[nodiscard]] std::optional<QByteArray> findIn(const QByteArray& folder, const FileIdentity& identity) const;

    const FilePlaces& m_places;
    const QByteArray& m_dataHome;
};

} // namespace nookle
