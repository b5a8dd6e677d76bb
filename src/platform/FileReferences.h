#pragma once

#include <QByteArray>
#include <QList>
#include <QUrl>

#include <functional>
#include <optional>
#include <vector>

namespace nookle {

/// The file that a reference stands for now.
struct ResolvedFile {
    QUrl url;
    /// The reference still works, but should be replaced by a new one.
    bool isStale = false;

    bool operator==(const ResolvedFile&) const = default;
};

/// Persistent references to files and folders. They survive moving and renaming. Main thread only.
class FileReferences {
public:
    virtual ~FileReferences() = default;

    /// An opaque reference to the file at `url`; none when there is no such file. A file on a file system that may not
    /// answer always gets a reference.
    [[nodiscard]] virtual std::optional<QByteArray> make(const QUrl& url) = 0;

    /// The references to many files, in their order. May be quicker than many calls of `make`.
    [[nodiscard]] virtual QList<std::optional<QByteArray>> makeAll(const QList<QUrl>& urls)
    {
        QList<std::optional<QByteArray>> references;
        for (const QUrl& url : urls)
            references.append(make(url));
        return references;
    }

    /// The file or folder that `reference` stands for; none if it does not exist now. A file in the Trash exists. Never
    /// asks the user for anything and mounts nothing. Does not wait for a file system that may not answer: returns the
    /// last known state, and calls `onFilesFound` later if that has changed. Bytes that `make` did not write resolve to
    /// nothing.
    [[nodiscard]] virtual std::optional<ResolvedFile> resolve(const QByteArray& reference) = 0;

    /// The files of many references, in their order. May be quicker than many calls of `resolve`.
    [[nodiscard]] virtual std::vector<std::optional<ResolvedFile>> resolveAll(const std::vector<QByteArray>& references)
    {
        std::vector<std::optional<ResolvedFile>> files;
        for (const QByteArray& reference : references)
            files.push_back(resolve(reference));
        return files;
    }

    /// Whether `reference` was made for a folder. Does not wait for a file system that may not answer; false if that is
    /// not known.
    [[nodiscard]] virtual bool isFolder(const QByteArray& reference) const = 0;

    /// Frees the resources that are used to follow the file of `reference`. The bytes stay valid.
    virtual void release(const QByteArray& reference) = 0;

    /// Called when a background search has found missing files, or when the state of a file differs from the last
    /// answer of `resolve`. The receiver should resolve its references again.
    std::function<void()> onFilesFound;
};

} // namespace nookle
