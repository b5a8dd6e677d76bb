#pragma once

#include <QByteArray>
#include <QHash>
#include <QSet>

#include <optional>

namespace nookle {

/// What is mounted where, as the kernel lists it.
class MountTable final {
public:
    enum class Kind {
        /// What the program cannot do without: the root folder's file system and that of the user's home folder.
        /// Counts as local, whatever it is.
        own,
        /// A file system of this computer: whoever looks at it gets an answer.
        local,
        /// A server or a program stands behind it, which may never answer.
        distant,
        /// Nothing yet: the system would mount something there for whoever goes on.
        automount,
    };

    /// Reads the text of `/proc/self/mountinfo`.
    [[nodiscard]] static MountTable parse(const QByteArray& mountInfo);

    /// What is mounted at exactly that path, which must hold no links.
    [[nodiscard]] std::optional<Kind> at(const QByteArray& path) const;

    /// Whether something is mounted on an entry of the folder at that path, which must hold no links.
    [[nodiscard]] bool hasMountsIn(const QByteArray& folder) const { return m_foldersOfMounts.contains(folder); }

    /// The mount point of the file system that holds `path`, which must hold no links.
    [[nodiscard]] QByteArray mountPointOf(QByteArray path) const;

    /// The program cannot do without what is mounted there.
    void setOwn(const QByteArray& mountPoint) { m_kinds.insert(mountPoint, Kind::own); }

private:
    QHash<QByteArray, Kind> m_kinds;
    QSet<QByteArray> m_foldersOfMounts;
};

} // namespace nookle
