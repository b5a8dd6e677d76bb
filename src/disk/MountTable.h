#pragma once

#include <QByteArray>
#include <QHash>
#include <QSet>

#include <optional>

namespace nookle {

/// The kernel's list of mounts.
class MountTable final {
public:
    enum class Kind {
        /// A file system that the program cannot do without: that of the root folder or of the user's home folder.
        /// Treated as local, whatever its type.
        own,
        /// A file system of this computer, which always answers.
        local,
        /// A file system of a server or a program, which may never answer.
        distant,
        /// An automount point without a mount: accessing a path below it would mount something.
        automount,
    };

    /// Reads the text of `/proc/self/mountinfo`.
    [[nodiscard]] static MountTable parse(const QByteArray& mountInfo);

    /// The kind of the mount at exactly `path`; none if `path` is no mount point. `path` must contain no links.
    [[nodiscard]] std::optional<Kind> at(const QByteArray& path) const;

    /// Whether an entry of `folder` is a mount point. `folder` must contain no links.
    [[nodiscard]] bool hasMountsIn(const QByteArray& folder) const { return m_foldersOfMounts.contains(folder); }

    /// The mount point of the file system that holds `path`. `path` must contain no links.
    [[nodiscard]] QByteArray mountPointOf(QByteArray path) const;

    /// Marks the mount at `mountPoint` as `Kind::own`.
    void setOwn(const QByteArray& mountPoint) { m_kinds.insert(mountPoint, Kind::own); }

private:
    QHash<QByteArray, Kind> m_kinds;
    QSet<QByteArray> m_foldersOfMounts;
};

} // namespace nookle
