#pragma once

#include "FakeLinkMetadataService.h"
#include "FakeMainQueue.h"
#include "FakeTrash.h"
#include "LinuxFileReferences.h"
#include "ShelfStore.h"

#include <QList>
#include <QTemporaryDir>
#include <QUrl>

#include <memory>

namespace nookle {

/// A folder with files, and a shelf that refers to them as the program does.
class ShelfFolder {
public:
    /// Makes `fileCount` empty files.
    explicit ShelfFolder(int fileCount);

    /// The files `first` to `first + count`.
    [[nodiscard]] QList<QUrl> urls(int first, int count) const;

    /// A shelf, with what was saved in this folder before. Ends the one that was opened before: no more than its
    /// deletion may follow.
    [[nodiscard]] std::unique_ptr<ShelfStore> open();

    /// An index of `count` items of which one in ten each is a text, a link and an image.
    [[nodiscard]] static QList<ShelfItem> mixedItems(int count);

private:
    [[nodiscard]] QByteArray path(const QByteArray& name) const;

    /// In memory: making the files on a disk would take longer than everything that is measured.
    QTemporaryDir m_folder{ QStringLiteral("/dev/shm/nookle-bench-XXXXXX") };
    FakeMainQueue m_queue;
    FakeTrash m_trash;
    FakeLinkMetadataService m_linkMetadata;
    std::unique_ptr<LinuxFileReferences> m_references;
};

} // namespace nookle
