#pragma once

#include "FileIdentity.h"
#include "Lifetime.h"

#include <QByteArray>

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace nookle {

class MainQueue;
class Mounts;
class TreeSearch;

/// Searches in the background, below the home folder, for files that have disappeared from their place. One pass
/// searches for all files that were requested in one turn of the main queue. A file that was not found is not searched
/// for again for `pauseAfterFailure`. The destructor does not wait. Main thread only.
class LostFileSearch final {
public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;

    inline static constexpr std::chrono::minutes pauseAfterFailure{ 10 };

    LostFileSearch(QByteArray home, std::shared_ptr<Mounts> mounts, MainQueue& queue, Clock now);
    ~LostFileSearch();
    LostFileSearch(const LostFileSearch&) = delete;
    LostFileSearch& operator=(const LostFileSearch&) = delete;

    /// Requests a search for the file of `reference`, unless one is running or failed a short while ago.
    void want(const QByteArray& reference, const FileIdentity& identity);

    /// The path at which the last search found the file. The file may have moved since.
    [[nodiscard]] std::optional<QByteArray> found(const QByteArray& reference) const;

    /// Drops everything known about `reference`.
    void forget(const QByteArray& reference);

    /// Whether a pass is under way or about to begin.
    [[nodiscard]] bool isSearching() const;

    /// Called when a pass has found files. Set by the owner.
    std::function<void()> onFound;

private:
    void scheduleStart();
    void start();
    void finish(const std::vector<std::optional<QByteArray>>& places);

    QByteArray m_home;
    std::shared_ptr<Mounts> m_mounts;
    MainQueue& m_queue;
    Clock m_now;
    /// The files that the next pass searches for.
    std::map<QByteArray, FileIdentity> m_wanted;
    /// The references that the running pass searches for; empty bytes for one that was forgotten.
    std::vector<QByteArray> m_searched;
    std::unique_ptr<TreeSearch> m_pass;
    std::map<QByteArray, QByteArray> m_found;
    std::map<QByteArray, std::chrono::steady_clock::time_point> m_failures;
    Lifetime m_lifetime;
};

} // namespace nookle
