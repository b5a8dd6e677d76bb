#pragma once

#include "ShelfItem.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSet>
#include <QUrl>
#include <QUuid>

#include <optional>

namespace nookle {

class FileReferences;
class Trash;
struct ResolvedFile;

/// Keeps the last known places of the files that items refer to. The constructor's arguments must outlive it. Main
/// thread only.
class ReferencedFiles final {
public:
    ReferencedFiles(FileReferences& references, const Trash& trash);

    /// The URL of each item's file. No entry for an item whose file is missing or in the Trash.
    [[nodiscard]] const QHash<QUuid, QUrl>& urls() const { return m_urls; }

    [[nodiscard]] std::optional<QUrl> url(const QUuid& id) const;

    /// Whether the file is a folder. Does not wait for a file system that may not answer; false if that is not known.
    [[nodiscard]] bool isFolder(const FileContent& file) const;

    /// The indexes of the items for each path of a file; for each path, the topmost item comes last.
    [[nodiscard]] QHash<QByteArray, QList<qsizetype>> itemsByPath(const QList<ShelfItem>& items) const;

    /// Item contents that refer to the files, in their order; none for a file that gets no reference.
    [[nodiscard]] QList<std::optional<FileContent>> makeAll(const QList<QUrl>& urls);

    /// Stores the URL of a new item's file.
    void insert(const QUuid& id, const QUrl& url) { m_urls.insert(id, url); }

    struct Changes {
        bool ofUrls = false;
        bool ofItems = false;
    };

    /// Resolves all references, and updates bookmarks and names in `items`.
    Changes refresh(QList<ShelfItem>& items);

    /// Forgets the items `gone`; `remaining` are the items that stay. Returns whether any of `gone` had a known URL.
    bool forget(const QList<ShelfItem>& gone, const QList<ShelfItem>& remaining);

private:
    [[nodiscard]] FileContent refreshed(const FileContent& file, const ResolvedFile& resolved) const;
    /// Releases the bookmarks that no item in `items` uses.
    void releaseUnused(QSet<QByteArray> bookmarks, const QList<ShelfItem>& items) const;

    FileReferences& m_references;
    const Trash& m_trash;
    QHash<QUuid, QUrl> m_urls;
};

} // namespace nookle
