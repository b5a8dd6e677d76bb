#pragma once

#include "FileIdentity.h"
#include "FileReferences.h"
#include "FollowedFiles.h"
#include "LostFileSearch.h"

#include <QByteArray>

#include <chrono>
#include <optional>

namespace nookle {

class MainQueue;
struct FileReference;

/// References that hold a path and the file's identity. A symbolic link is itself what is referred to, but one that
/// leads nowhere counts as not there. Main thread only.
class LinuxFileReferences final : public FileReferences {
public:
    /// `home` is the folder below which lost files are looked for, `dataHome` the one that holds the user's Trash.
    LinuxFileReferences(const QByteArray& home, QByteArray dataHome, MainQueue& queue,
                        LostFileSearch::Clock now = std::chrono::steady_clock::now);
    ~LinuxFileReferences() override;

    std::optional<QByteArray> make(const QUrl& url) override;
    /// Looks at the files on several threads.
    QList<std::optional<QByteArray>> makeAll(const QList<QUrl>& urls) override;
    std::optional<ResolvedFile> resolve(const QByteArray& reference) override;
    /// Looks on several threads at those that have nothing to be done for.
    std::vector<std::optional<ResolvedFile>> resolveAll(const std::vector<QByteArray>& references) override;
    void release(const QByteArray& reference) override;

private:
    /// The file where it was when its reference was made, if that can be said without changing anything here; may be
    /// called on any thread.
    [[nodiscard]] std::optional<ResolvedFile> inPlace(const QByteArray& reference) const;
    [[nodiscard]] std::optional<QByteArray> newPath(const QByteArray& bytes, const FileReference& reference);
    [[nodiscard]] std::optional<QByteArray> foundPath(const QByteArray& bytes, const FileIdentity& identity) const;

    QByteArray m_dataHome;
    FollowedFiles m_followed;
    LostFileSearch m_search;
};

} // namespace nookle
