#pragma once

#include <QByteArray>
#include <QUrl>

#include <functional>
#include <memory>
#include <set>

namespace nookle {

/// A watch of a folder, which ends when this is destroyed.
class FolderSubscription {
public:
    virtual ~FolderSubscription() = default;

    /// Whether the folder that is watched is still the one at its path. One that is not tells nothing any more.
    [[nodiscard]] virtual bool isInPlace() const = 0;
};

/// A watch that was asked for.
struct WatchedFolder {
    enum class Result {
        watched,
        /// There is no such folder, or nobody may read it, or it may never answer.
        unreadable,
        /// The programs of the user have as many watches as the system allows.
        noWatchLeft,
    };

    /// Null unless the folder is watched.
    std::unique_ptr<FolderSubscription> subscription;
    Result result = Result::watched;
};

/// Looks into folders, and tells when their entries change. A folder that may never answer counts as none. Main thread
/// only.
class FolderWatch {
public:
    virtual ~FolderWatch() = default;

    [[nodiscard]] virtual bool isFolder(const QUrl& url) const = 0;

    /// The names of the entries of `folder`, in ascending order; they are bytes, not text. Empty when it cannot be
    /// read.
    [[nodiscard]] virtual std::set<QByteArray> entryNames(const QUrl& folder) const = 0;

    /// Calls `onChanged` whenever an entry was added, removed or renamed, once or more for each, and when the folder
    /// itself goes.
    [[nodiscard]] virtual WatchedFolder watch(const QUrl& folder, std::function<void()> onChanged) = 0;
};

} // namespace nookle
