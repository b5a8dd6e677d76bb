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

/// Resolves references to files on file systems that may never answer. Other threads access these files; until such a
/// look is done, a file keeps its last known state. Main thread only.
class DistantFiles final {
public:
    /// `dataHome` is the folder that holds the user's Trash.
    DistantFiles(std::shared_ptr<Mounts> mounts, QByteArray dataHome, MainQueue& queue);
    /// Does not wait for running looks.
    ~DistantFiles();
    DistantFiles(const DistantFiles&) = delete;
    DistantFiles& operator=(const DistantFiles&) = delete;

    /// The last known state of the file of `reference`, and starts another look at it. Before the first look of this
    /// run is done, the file counts as being in its place. `bytes` is the encoded reference; the file lies on the mount
    /// at `mountPoint`.
    [[nodiscard]] std::optional<ResolvedFile> resolve(const QByteArray& bytes, const FileReference& reference,
                                                      const QByteArray& mountPoint);

    /// A reference to the file at `path`: the new reference that a look made for a stale one, if that look found the
    /// file at `path`. Otherwise a reference that holds only the path.
    [[nodiscard]] QByteArray make(const QByteArray& path) const;

    /// Drops everything known about the reference `bytes`.
    void forget(const QByteArray& bytes) { m_known.erase(bytes); }

    /// Called when `resolve` returns something else for a file than before. Set by the owner.
    std::function<void()> onChanged;

private:
    struct Answer {
        std::optional<ResolvedFile> file;
        /// A new reference if the old one is stale; otherwise empty.
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
