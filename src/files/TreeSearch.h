#pragma once

#include "FileIdentity.h"

#include <QByteArray>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace nookle {

class MainQueue;
class Mounts;
class ReturnPath;

/// One pass through a folder's tree for a number of files, on a thread of its own that runs only when nothing else
/// wants to. It stays on the folder's volume, opens nothing that is mounted in it, and follows no links. Destroying it
/// waits for nothing: the thread ends soon after, or never, where the volume does not answer. Main thread only.
class TreeSearch final {
public:
    /// The path of each wanted file, in the same order, where one was found.
    using Places = std::vector<std::optional<QByteArray>>;
    using Completion = std::function<void(const Places&)>;

    /// Begins at once. `completion` is called on the main thread, unless the search was destroyed before; it may
    /// destroy the search.
    TreeSearch(const QByteArray& root, const std::vector<FileIdentity>& wanted, std::shared_ptr<Mounts> mounts,
               MainQueue& queue, Completion completion);
    ~TreeSearch();
    TreeSearch(const TreeSearch&) = delete;
    TreeSearch& operator=(const TreeSearch&) = delete;

private:
    std::shared_ptr<Completion> m_completion;
    std::shared_ptr<ReturnPath> m_return;
};

} // namespace nookle
