#pragma once

#include "DistantFiles.h"
#include "FileIdentity.h"
#include "FileReferences.h"
#include "FollowedFiles.h"
#include "LostFileSearch.h"

#include <QByteArray>

#include <chrono>
#include <memory>
#include <optional>

namespace nookle {

class FilePlaces;
class MainQueue;
class Mounts;
struct FileReference;

/// References that hold a path and the file's identity. A symbolic link is itself what is referred to, but one that
/// leads nowhere counts as not there. What lies where a look may not be answered has the state that was last known of
/// it, see `DistantFiles`. Main thread only.
class LinuxFileReferences final : public FileReferences {
public:
    /// `home` is the folder below which lost files are looked for, `dataHome` the one that holds the user's Trash.
    /// Without `mounts` the kernel is asked what is mounted.
    LinuxFileReferences(const QByteArray& home, const QByteArray& dataHome, MainQueue& queue,
                        LostFileSearch::Clock now = std::chrono::steady_clock::now,
                        std::shared_ptr<Mounts> mounts = {});
    ~LinuxFileReferences() override;

    std::optional<QByteArray> make(const QUrl& url) override;
    /// Looks at the files on several threads.
    QList<std::optional<QByteArray>> makeAll(const QList<QUrl>& urls) override;
    std::optional<ResolvedFile> resolve(const QByteArray& reference) override;
    /// Looks on several threads at those that have nothing to be done for.
    std::vector<std::optional<ResolvedFile>> resolveAll(const std::vector<QByteArray>& references) override;
    [[nodiscard]] bool isFolder(const QByteArray& reference) const override;
    void release(const QByteArray& reference) override;

private:
    [[nodiscard]] std::optional<ResolvedFile> resolve(const QByteArray& reference, const FilePlaces& places);
    /// The file where it was when its reference was made, if that can be said without changing anything here; may be
    /// called on any thread.
    [[nodiscard]] std::optional<ResolvedFile> inPlace(const QByteArray& reference, const FilePlaces& places) const;
    [[nodiscard]] std::optional<ResolvedFile> lookHere(const QByteArray& bytes, const FileReference& reference,
                                                       const FilePlaces& places);
    [[nodiscard]] std::optional<QByteArray> foundPath(const QByteArray& bytes, const FileIdentity& identity,
                                                      const FilePlaces& places) const;

    QByteArray m_dataHome;
    std::shared_ptr<Mounts> m_mounts;
    DistantFiles m_distant;
    FollowedFiles m_followed;
    LostFileSearch m_search;
};

} // namespace nookle
