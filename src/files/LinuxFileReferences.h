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

/// References that hold a path and the file's identity. A reference to a symbolic link means the link itself, but a
/// link without a target counts as missing. Files on file systems that may not answer have their last known state, see
/// `DistantFiles`. Main thread only.
class LinuxFileReferences final : public FileReferences {
public:
    /// Lost files are searched below `home`. `dataHome` is the folder that holds the user's Trash. Without `mounts` the
    /// object makes its own mount table.
    LinuxFileReferences(const QByteArray& home, const QByteArray& dataHome, MainQueue& queue,
                        LostFileSearch::Clock now = std::chrono::steady_clock::now,
                        std::shared_ptr<Mounts> mounts = {});
    ~LinuxFileReferences() override;

    std::optional<QByteArray> make(const QUrl& url) override;
    /// Accesses the files on several threads.
    QList<std::optional<QByteArray>> makeAll(const QList<QUrl>& urls) override;
    std::optional<ResolvedFile> resolve(const QByteArray& reference) override;
    /// Checks on several threads whether the files are still in place. Only the others take the full, slower way.
    std::vector<std::optional<ResolvedFile>> resolveAll(const std::vector<QByteArray>& references) override;
    [[nodiscard]] bool isFolder(const QByteArray& reference) const override;
    void release(const QByteArray& reference) override;

private:
    [[nodiscard]] std::optional<ResolvedFile> resolve(const QByteArray& reference, const FilePlaces& places);
    /// The file at the path in its reference, if a quick check shows that it is still there. Changes nothing in this
    /// object, so any thread may call it.
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
