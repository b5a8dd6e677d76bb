#pragma once

#include "MountTable.h"

#include <QByteArray>
#include <QHash>

#include <memory>
#include <mutex>

namespace nookle {

/// Tells whether a path can be accessed without blocking.
struct FilePlace {
    enum class Reach {
        /// The path crosses only file systems that always answer.
        here,
        /// The path crosses a file system that may never answer.
        distant,
        /// The path leads to a place where the system would have to mount something first.
        unmounted,
    };

    Reach reach = Reach::here;
    /// The first mount point on the path that may not answer; empty if there is none.
    QByteArray distantMount;

    bool operator==(const FilePlace&) const = default;
};

/// Tells which paths may be accessed. Follows the links in a path folder by folder, so that it never triggers a mount
/// and never accesses a file system that may not answer. Use it for a short time only: it caches what it has seen. Any
/// thread.
class FilePlaces final {
public:
    /// Whether file systems that may not answer are accessed too. `endless` is only for threads that nobody waits for;
    /// it still triggers no mount.
    enum class Patience { none, endless };
    /// Whether a symbolic link as the last component of a path is followed.
    enum class Links { follow, refuse };

    explicit FilePlaces(std::shared_ptr<const MountTable> mounts, Patience patience = Patience::none);

    [[nodiscard]] FilePlace placeOf(const QByteArray& path, Links last) const;

    [[nodiscard]] bool mayLookAt(const QByteArray& path, Links last) const;

    /// The mount point of the file system that holds `path`.
    [[nodiscard]] QByteArray mountPointOf(const QByteArray& path) const;

    /// Whether `path` is a mount point. `path` must contain no links.
    [[nodiscard]] bool isMountPoint(const QByteArray& path) const { return m_mounts->at(path).has_value(); }

    /// `path` with its links resolved, except for links that must not be accessed.
    [[nodiscard]] QByteArray resolved(const QByteArray& path) const;

private:
    /// A path with its links resolved.
    struct Spot {
        QByteArray path = QByteArrayLiteral("/");
        MountTable::Kind kind = MountTable::Kind::own;
        QByteArray distantMount;
        /// Whether an entry of this folder is a mount point. Set by `folderSpot` only.
        bool holdsMounts = true;
    };

    [[nodiscard]] Spot folderSpot(const QByteArray& path) const;
    [[nodiscard]] Spot walk(Spot spot, const QByteArray& path, Links last, int& linksLeft) const;
    [[nodiscard]] Spot enter(const Spot& folder, const QByteArray& name) const;
    [[nodiscard]] Spot spotAt(const QByteArray& path) const;
    [[nodiscard]] bool mayAsk(const Spot& spot) const;

    std::shared_ptr<const MountTable> m_mounts;
    Patience m_patience;
    mutable std::mutex m_mutex;
    mutable QHash<QByteArray, Spot> m_folders;
};

} // namespace nookle
