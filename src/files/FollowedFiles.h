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

/// Knows where files went while the program runs, whatever was moved or given a new name above them. Each costs a
/// descriptor and one of the watches that all of the user's programs share, so only files on the volume of the home
/// folder are followed, a thousand at most, and only as long as half of the descriptors that the program may have are
/// left for everything else. A file that is deleted is let go at once: an
/// open descriptor would keep its space on the disk. A deleted folder, which the system does not tell of and which
/// holds nothing any more, is let go when it is asked for. Main thread only.
class FollowedFiles final {
public:
    explicit FollowedFiles(const QByteArray& home);
    ~FollowedFiles();
    FollowedFiles(const FollowedFiles&) = delete;
    FollowedFiles& operator=(const FollowedFiles&) = delete;

    /// How many more files can be afforded.
    [[nodiscard]] std::size_t room() const { return m_inotify.isOpen() ? m_mostFiles - m_files.size() : 0; }

    /// Follows the file at `path`, which `descriptor` is open on, under the name of `reference`, if that can be
    /// afforded.
    void follow(const QByteArray& reference, const QByteArray& path, FileDescriptor descriptor);

    /// Where the file was when its following began, if it is still there. Much quicker than `path`. None for links,
    /// which may stand in their place and lead nowhere. Looks only where `places` allows it.
    [[nodiscard]] std::optional<QByteArray> pathInPlace(const QByteArray& reference, const FilePlaces& places) const;

    /// Where the file is now; none when it is not followed or has no name any more. Looks only where `places` allows
    /// it.
    [[nodiscard]] std::optional<QByteArray> path(const QByteArray& reference, const FilePlaces& places);

    void release(const QByteArray& reference);

private:
    struct Followed {
        FileDescriptor descriptor;
        int watch;
        QByteArray firstPath;
        /// Nobody else has its number while the descriptor is open.
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
    /// The references of each watch: those of one file share it.
    std::unordered_multimap<int, QByteArray> m_referencesByWatch;
};

} // namespace nookle
