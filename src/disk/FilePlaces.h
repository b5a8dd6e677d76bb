#pragma once

#include "MountTable.h"

#include <QByteArray>
#include <QHash>

#include <memory>
#include <mutex>

namespace nookle {

/// Where a path leads, as far as that matters to whoever wants to look at it.
struct FilePlace {
    enum class Reach {
        /// Only over file systems that answer.
        here,
        /// Over one that may never answer.
        distant,
        /// To where the system would have to mount something first.
        unmounted,
    };

    Reach reach = Reach::here;
    /// The first mount point on the way that may not answer.
    QByteArray distantMount;

    bool operator==(const FilePlace&) const = default;
};

/// Says which paths may be looked at, following the links in them folder by folder, so that nothing is mounted and
/// nothing is asked that may not answer. Valid for a short while only: it remembers what it has seen. Any thread.
class FilePlaces final {
public:
    /// Whether what may not answer is looked at as well, which is for threads that nobody waits for. Not even they
    /// have anything mounted.
    enum class Patience { none, endless };
    /// Whether a link in the last place of a path is followed.
    enum class Links { follow, refuse };

    explicit FilePlaces(std::shared_ptr<const MountTable> mounts, Patience patience = Patience::none);

    [[nodiscard]] FilePlace placeOf(const QByteArray& path, Links last) const;

    [[nodiscard]] bool mayLookAt(const QByteArray& path, Links last) const;

    /// The mount point of the file system that holds `path`.
    [[nodiscard]] QByteArray mountPointOf(const QByteArray& path) const;

    /// Whether something is mounted at `path`, which must hold no links.
    [[nodiscard]] bool isMountPoint(const QByteArray& path) const { return m_mounts->at(path).has_value(); }

    /// `path` without links, as far as that can be told.
    [[nodiscard]] QByteArray resolved(const QByteArray& path) const;

private:
    /// A path whose links were followed.
    struct Spot {
        QByteArray path = QByteArrayLiteral("/");
        MountTable::Kind kind = MountTable::Kind::own;
        QByteArray distantMount;
        /// Of a folder that was walked to: whether something is mounted on one of its entries.
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
