#pragma once

#include <QByteArray>
#include <QList>
#include <QUrl>

#include <functional>
#include <optional>
#include <vector>

namespace nookle {

/// Where a reference leads now.
struct ResolvedFile {
    QUrl url;
    /// The reference still leads there, but a new one should be made to replace it.
    bool isStale = false;

    bool operator==(const ResolvedFile&) const = default;
};

/// Persistent references to files and folders that survive moves and new names. Main thread only.
class FileReferences {
public:
    virtual ~FileReferences() = default;

    /// An opaque reference to the file at `url`; none when nothing can be referred to there. What lies where a look may
    /// not be answered can always be referred to.
    [[nodiscard]] virtual std::optional<QByteArray> make(const QUrl& url) = 0;

    /// The references to many files at once, in their order; may be quicker than one after the other.
    [[nodiscard]] virtual QList<std::optional<QByteArray>> makeAll(const QList<QUrl>& urls)
    {
        QList<std::optional<QByteArray>> references;
        for (const QUrl& url : urls)
            references.append(make(url));
        return references;
    }

    /// The file or folder that `reference` stands for, as long as it exists now, in the Trash too; never asks the user
    /// for anything and mounts nothing. Does not wait for a file system that may not answer, but says what was last
    /// known, and tells `onFilesFound` when that has changed. Bytes that `make` did not write resolve to nothing.
    [[nodiscard]] virtual std::optional<ResolvedFile> resolve(const QByteArray& reference) = 0;

    /// The same for many references at once, in their order; may be quicker than one after the other.
    [[nodiscard]] virtual std::vector<std::optional<ResolvedFile>> resolveAll(const std::vector<QByteArray>& references)
    {
        std::vector<std::optional<ResolvedFile>> files;
        for (const QByteArray& reference : references)
            files.push_back(resolve(reference));
        return files;
    }

    /// Whether `reference` was made for a folder, as far as that is known without waiting for anything.
    [[nodiscard]] virtual bool isFolder(const QByteArray& reference) const = 0;

    /// Gives up what following `reference` takes while the program runs. The bytes stay valid.
    virtual void release(const QByteArray& reference) = 0;

    /// Called when files were found in the background that `resolve` had lost, or others have another state than
    /// `resolve` said: resolving again will tell.
    std::function<void()> onFilesFound;
};

} // namespace nookle
