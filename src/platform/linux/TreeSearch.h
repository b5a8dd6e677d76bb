#pragma once

#include "FileIdentity.h"

#include <QByteArray>

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QThread;

namespace nookle {

class MainQueue;

/// One pass through a folder's tree for a number of files, on a thread of its own that runs only when nothing else
/// wants to. It stays on the folder's volume and follows no links. Destroying it ends it. Main thread only.
class TreeSearch final {
public:
    /// The path of each wanted file, in the same order, where one was found.
    using Places = std::vector<std::optional<QByteArray>>;
    using Completion = std::function<void(const Places&)>;

    /// Begins at once. `completion` is called on the main thread, unless the search was destroyed before; it may
    /// destroy the search.
    TreeSearch(const QByteArray& root, std::vector<FileIdentity> wanted, MainQueue& queue, Completion completion);
    ~TreeSearch();
    TreeSearch(const TreeSearch&) = delete;
    TreeSearch& operator=(const TreeSearch&) = delete;

private:
    std::atomic<bool> m_isInterrupted = false;
    std::shared_ptr<Completion> m_completion;
    std::unique_ptr<QThread> m_thread;
};

} // namespace nookle
