#pragma once

#include "DistantWork.h"
#include "FileReferences.h"
#include "Lifetime.h"

#include <QByteArray>

#include <functional>
#include <map>
#include <memory>
#include <optional>

namespace nookle {

class Cancellable;
class MainQueue;
class Mounts;
struct FileReference;

/// The files that lie where a look may never be answered. They are looked at on other threads, and keep their last
/// known state until that is done. Main thread only.
class DistantFiles final {
public:
    /// `dataHome` is the folder that holds the user's Trash.
    DistantFiles(std::shared_ptr<Mounts> mounts, QByteArray dataHome, MainQueue& queue);
    /// Waits for nothing.
    ~DistantFiles();
    DistantFiles(const DistantFiles&) = delete;
    DistantFiles& operator=(const DistantFiles&) = delete;

    /// What is last known of the file of `reference`, whose bytes are `bytes`, and which lies behind `mountPoint`: that
    /// it is in its place, until it was looked at in this run. Has it looked at once more.
    [[nodiscard]] std::optional<ResolvedFile> resolve(const QByteArray& bytes, const FileReference& reference,
                                                      const QByteArray& mountPoint);

    /// A reference to what is last known to be at `path`; until it was looked at, one that holds the path alone.
    [[nodiscard]] QByteArray make(const QByteArray& path) const;

    /// Drops all that is known about the reference `bytes`.
    void forget(const QByteArray& bytes) { m_known.erase(bytes); }

    /// `resolve` has another answer for a file than before. Set by the owner.
    std::function<void()> onChanged;

private:
    struct Answer {
        std::optional<ResolvedFile> file;
        /// A new reference, where the old one is stale.
        QByteArray made;

        bool operator==(const Answer&) const = default;
    };

    struct Known {
        Answer answer;
        bool isAnswered = false;
        bool isBeingLookedAt = false;
    };

    [[nodiscard]] static Answer look(Mounts& mounts, const FileReference& reference, const QByteArray& dataHome);
    void beginLook(const QByteArray& bytes, const FileReference& reference, const QByteArray& mountPoint);
    void take(const QByteArray& bytes, const Answer& answer);
    void tell();

    std::shared_ptr<Mounts> m_mounts;
    QByteArray m_dataHome;
    MainQueue& m_queue;
    DistantWork m_work;
    std::map<QByteArray, Known> m_known;
    std::unique_ptr<Cancellable> m_telling;
    bool m_isTelling = false;
    Lifetime m_lifetime;
};

} // namespace nookle
