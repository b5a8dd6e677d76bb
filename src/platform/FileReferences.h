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

    /// An opaque reference to the file at `url`; none when nothing can be referred to there.
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
    /// for anything and mounts nothing. Bytes that `make` did not write resolve to nothing.
    [[nodiscard]] virtual std::optional<ResolvedFile> resolve(const QByteArray& reference) = 0;

    /// The same for many references at once, in their order; may be quicker than one after the other.
    [[nodiscard]] virtual std::vector<std::optional<ResolvedFile>> resolveAll(const std::vector<QByteArray>& references)
    {
        std::vector<std::optional<ResolvedFile>> files;
        for (const QByteArray& reference : references)
            files.push_back(resolve(reference));
        return files;
    }

    /// Gives up what following `reference` takes while the program runs. The bytes stay valid.
    virtual void release(const QByteArray& reference) = 0;

    /// Called when a search in the background found files that `resolve` had lost: resolving again will find them.
    std::function<void()> onFilesFound;
};

} // namespace nookle
