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

/// Looks in the background for files whose place is lost, anywhere below the home folder. Whatever is wanted in one
/// turn of the main queue is looked for in one pass; what was not found is left alone for some minutes. Destroying it
/// waits for nothing. Main thread only.
class LostFileSearch final {
public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;

    inline static constexpr std::chrono::minutes pauseAfterFailure{ 10 };

    LostFileSearch(QByteArray home, std::shared_ptr<Mounts> mounts, MainQueue& queue, Clock now);
    ~LostFileSearch();
    LostFileSearch(const LostFileSearch&) = delete;
    LostFileSearch& operator=(const LostFileSearch&) = delete;

    /// Looks for the file of `reference`, unless that is under way or was in vain a short while ago.
    void want(const QByteArray& reference, const FileIdentity& identity);

    /// Where the file was when the search came past it.
    [[nodiscard]] std::optional<QByteArray> found(const QByteArray& reference) const;

    /// Drops all that is known about `reference`.
    void forget(const QByteArray& reference);

    /// Whether a pass is under way or about to begin.
    [[nodiscard]] bool isSearching() const;

    /// A pass has found files. Set by the owner.
    std::function<void()> onFound;

private:
    void scheduleStart();
    void start();
    void finish(const std::vector<std::optional<QByteArray>>& places);

    QByteArray m_home;
    std::shared_ptr<Mounts> m_mounts;
    MainQueue& m_queue;
    Clock m_now;
    /// What the next pass looks for.
    std::map<QByteArray, FileIdentity> m_wanted;
    /// What the pass under way looks for.
    std::vector<QByteArray> m_searched;
    std::unique_ptr<TreeSearch> m_pass;
    std::map<QByteArray, QByteArray> m_found;
    std::map<QByteArray, std::chrono::steady_clock::time_point> m_failures;
    Lifetime m_lifetime;
};

} // namespace nookle
