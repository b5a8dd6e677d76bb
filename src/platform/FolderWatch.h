#pragma once

#include <QByteArray>
#include <QUrl>

#include <functional>
#include <memory>
#include <set>

namespace nookle {

/// A running watch of a folder. Destroying it ends the watch.
class FolderSubscription {
public:
    virtual ~FolderSubscription() = default;

    /// Whether the watched folder is still the one at its path. If not, the watch reports nothing any more.
    [[nodiscard]] virtual bool isInPlace() const = 0;
};

/// The result of a request to watch a folder.
struct WatchedFolder {
    enum class Result {
        watched,
        /// The folder does not exist, cannot be read, or is on a file system that may never answer.
        unreadable,
        /// The user's programs have reached the system's limit on watches.
        noWatchLeft,
    };

    /// Null unless the folder is watched.
    std::unique_ptr<FolderSubscription> subscription;
    Result result = Result::watched;
};

/// Lists folders, and reports changes of their entries. A folder on a file system that may never answer counts as
/// missing. Main thread only.
class FolderWatch {
public:
    virtual ~FolderWatch() = default;

    [[nodiscard]] virtual bool isFolder(const QUrl& url) const = 0;

    /// The names of the entries of `folder`, in ascending order; names are bytes, not text. Empty when the folder
    /// cannot be read.
    [[nodiscard]] virtual std::set<QByteArray> entryNames(const QUrl& folder) const = 0;

    /// Calls `onChanged` after entries were added, removed or renamed, and after the folder itself was removed or
    /// moved. One call may stand for several changes, and one change may cause several calls.
    [[nodiscard]] virtual WatchedFolder watch(const QUrl& folder, std::function<void()> onChanged) = 0;
};

} // namespace nookle
