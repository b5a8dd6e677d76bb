#pragma once

#include "FakeFileReferences.h"
#include "FakeLinkMetadataService.h"
#include "FakeMainQueue.h"
#include "FakeTrash.h"
#include "FileUrl.h"
#include "ShelfStore.h"

#include <QFile>
#include <QTemporaryDir>

#include <memory>

namespace nookle {

/// A store in a temporary folder, with everything around it.
struct StoreFixture {
    [[nodiscard]] static QUrl file(const char* path) { return fileUrl(path); }

    [[nodiscard]] QString path(const QString& name) const { return folder.filePath(name); }

    [[nodiscard]] QUrl urlOf(const QString& name) const { return fileUrl(QFile::encodeName(path(name))); }

    /// Where the index lies. Its folder does not exist at first.
    [[nodiscard]] QString indexPath() const { return path(QStringLiteral("data/index.json")); }

    /// The folder of an item's own files.
    [[nodiscard]] QString itemFolder(const QUuid& id) const
    {
        return path(QStringLiteral("data/Files/")) + id.toString(QUuid::WithoutBraces).toUpper();
    }

    void write(const QString& name, const QByteArray& bytes) const
    {
        QFile output(path(name));
        if (!output.open(QIODevice::WriteOnly) || output.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(output.fileName()));
    }

    [[nodiscard]] QByteArray read(const QString& name) const
    {
        QFile input(path(name));
        return input.open(QIODevice::ReadOnly) ? input.readAll() : QByteArray();
    }

    [[nodiscard]] std::unique_ptr<ShelfStore> open()
    {
        ShelfStore::Environment environment;
        environment.now = [this] { return now; };
        environment.moveToTrash = [this](const QUrl& url) { return trash.moveToTrash(url); };
        environment.putBack = [this](const QUrl& url) { return trash.putBack(url); };
        environment.fetchesLinkMetadata = fetchesLinkMetadata;
        environment.claimFolder = [this] { return claimFailure; };
        environment.largestIndex = largestIndex;
        return std::make_unique<ShelfStore>(urlOf(QStringLiteral("data")), environment, references, trash, linkMetadata,
                                            queue);
    }

    /// What the items are called, from the top.
    [[nodiscard]] static QStringList names(const ShelfStore& store)
    {
        QStringList names;
        for (const ShelfItem& item : store.items())
            names.append(item.displayName());
        return names;
    }

    QTemporaryDir folder;
    QDateTime now = QDateTime::fromString(QStringLiteral("2026-01-31T12:00:00.250Z"), Qt::ISODateWithMs);
    bool fetchesLinkMetadata = true;
    std::optional<Failure> claimFailure;
    qsizetype largestIndex = ShelfIndex::largestSize;
    FakeMainQueue queue;
    FakeFileReferences references;
    FakeTrash trash;
    FakeLinkMetadataService linkMetadata;
};

} // namespace nookle
