#pragma once

#include "FileDescriptor.h"

#include <QByteArray>
#include <QHash>

#include <sys/types.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <unordered_map>

class QSocketNotifier;

namespace nookle {

class FilePlaces;

/// Follows files while the program runs, even if a folder above them is moved or renamed. Each followed file costs a
/// descriptor and an inotify watch, which all of the user's programs share. So only files on the volume of the home
/// folder are followed: at most a thousand, and at most half of the program's limit on open descriptors. A deleted file
/// is released at once, because an open descriptor would keep its disk space in use. The kernel does not report a
/// deleted folder; it is released when `path` asks for it. Main thread only.
class FollowedFiles final {
public:
    explicit FollowedFiles(const QByteArray& home);
    ~FollowedFiles();
    FollowedFiles(const FollowedFiles&) = delete;
    FollowedFiles& operator=(const FollowedFiles&) = delete;

    /// How many more files can be followed.
    [[nodiscard]] std::size_t room() const { return m_inotify.isOpen() ? m_mostFiles - m_files.size() : 0; }

    /// Follows the file at `path` under the key `reference`, if the limits above allow it. `descriptor` is open on that
    /// file.
    void follow(const QByteArray& reference, const QByteArray& path, FileDescriptor descriptor);

    /// The path that was given to `follow`, if the file is still there. Much quicker than `path`. None for a link,
    /// because its target may be gone. Accesses only paths that `places` allows.
    [[nodiscard]] std::optional<QByteArray> pathInPlace(const QByteArray& reference, const FilePlaces& places) const;

    /// The present path of the file; none if it is not followed or was deleted. Accesses only paths that `places`
    /// allows.
    [[nodiscard]] std::optional<QByteArray> path(const QByteArray& reference, const FilePlaces& places);

    void release(const QByteArray& reference);

private:
    struct Followed {
        FileDescriptor descriptor;
        int watch;
        QByteArray firstPath;
        /// The kernel cannot reuse this number while the descriptor is open.
        ino_t inode;
    };
    using Files = std::unordered_map<QByteArray, Followed>;

    void readEvents();
    void releaseIfDeleted(int watch);
    void releaseAllDeleted();
    void release(Files::iterator file);

    std::optional<dev_t> m_device;
    std::size_t m_mostFiles;
    FileDescriptor m_inotify;
    std::unique_ptr<QSocketNotifier> m_notifier;
    Files m_files;
    /// The references of each watch. References to the same file share one watch.
    std::unordered_multimap<int, QByteArray> m_referencesByWatch;
};

} // namespace nookle
