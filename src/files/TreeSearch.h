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

/// Searches a folder tree for several files in one pass, on a thread of its own with idle priority. The search stays on
/// the folder's volume, does not open mount points in the tree, and follows no links. The destructor does not wait: the
/// thread ends soon after, or never if the volume does not answer. Main thread only.
class TreeSearch final {
public:
    /// The path of each wanted file, in the same order; none for a file that was not found.
    using Places = std::vector<std::optional<QByteArray>>;
    using Completion = std::function<void(const Places&)>;

    /// Begins at once. `completion` is called on the main thread, unless the search is destroyed before. `completion`
    /// may destroy the search.
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
