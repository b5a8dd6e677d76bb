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
};

/// Looks into folders, and tells when their entries change. Main thread only.
class FolderWatch {
public:
    virtual ~FolderWatch() = default;

    [[nodiscard]] virtual bool isFolder(const QUrl& url) const = 0;

    /// The names of the entries of `folder`, in ascending order; they are bytes, not text. Empty when it cannot be
    /// read.
    [[nodiscard]] virtual std::set<QByteArray> entryNames(const QUrl& folder) const = 0;

    /// Calls `onChanged` whenever an entry was added, removed or renamed, once or more for each; null when the folder
    /// cannot be opened.
    [[nodiscard]] virtual std::unique_ptr<FolderSubscription> watch(const QUrl& folder,
                                                                    std::function<void()> onChanged) = 0;
};

} // namespace nookle
