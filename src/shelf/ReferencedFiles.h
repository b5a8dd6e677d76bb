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

/// Where the files are that the items refer to, as of the last look. What it is given must outlive it. Main thread
/// only.
class ReferencedFiles final {
public:
    ReferencedFiles(FileReferences& references, const Trash& trash);

    /// No entry for an item whose file is gone or in the Trash.
    [[nodiscard]] const QHash<QUuid, QUrl>& urls() const { return m_urls; }

    [[nodiscard]] std::optional<QUrl> url(const QUuid& id) const;

    /// Whether the file is a folder, as far as that is known without looking at it.
    [[nodiscard]] bool isFolder(const FileContent& file) const;

    /// The indexes of the items whose file is at a path, the topmost item last.
    [[nodiscard]] QHash<QByteArray, QList<qsizetype>> itemsByPath(const QList<ShelfItem>& items) const;

    /// The contents of items that refer to the files, in their order; none for a file that cannot be referred to.
    [[nodiscard]] QList<std::optional<FileContent>> makeAll(const QList<QUrl>& urls);

    /// Notes where the file of a new item is.
    void insert(const QUuid& id, const QUrl& url) { m_urls.insert(id, url); }

    struct Changes {
        bool ofUrls = false;
        bool ofItems = false;
    };

    /// Looks where the files are now, and takes over their new places and names into the items.
    Changes refresh(QList<ShelfItem>& items);

    /// Lets go of items that left; `remaining` are those that stay. Returns whether a URL was known of one.
    bool forget(const QList<ShelfItem>& gone, const QList<ShelfItem>& remaining);

private:
    [[nodiscard]] FileContent refreshed(const FileContent& file, const ResolvedFile& resolved) const;
    /// Releases those bookmarks that no item holds any more.
    void releaseUnused(QSet<QByteArray> bookmarks, const QList<ShelfItem>& items) const;

    FileReferences& m_references;
    const Trash& m_trash;
    QHash<QUuid, QUrl> m_urls;
};

} // namespace nookle
