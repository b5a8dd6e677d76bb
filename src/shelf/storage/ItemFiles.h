#pragma once

#include "Failure.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QUrl>
#include <QUuid>

#include <functional>
#include <optional>

namespace nookle {

/// The files that the shelf owns. Each item that owns a file has a folder, named by the item's id, below one common
/// folder. Neither a hostile file name nor a link in place of the item's folder or the common folder leads this class
/// to a file outside the item's folder.
class ItemFiles {
public:
    explicit ItemFiles(const QUrl& directory);

    /// The name under which a file from outside is stored. It is the file's own name, with "_" for bytes that are not
    /// UTF-8, because the index stores names as text.
    [[nodiscard]] static QString storedName(const QUrl& source);

    /// The name of the file with a link's favicon.
    [[nodiscard]] static QString iconName();

    /// The item's file with that name, whether or not it exists. None if the name is not a plain file name (a hostile
    /// index may hold any name), or if a link has replaced a folder.
    [[nodiscard]] std::optional<QUrl> file(const QUuid& id, const QString& name) const;

    /// The item's file with that name; none if it does not exist.
    [[nodiscard]] std::optional<QUrl> existingFile(const QUuid& id, const QString& name) const;

    /// Moves a file from outside into the item's folder. Makes the folder if needed. After a failure the file is where
    /// it was.
    [[nodiscard]] std::optional<Failure> takeOver(const QUrl& source, const QUuid& id, const QString& name) const;

    /// Writes a file into the item's folder. Makes the folder if needed.
    [[nodiscard]] std::optional<Failure> write(const QByteArray& bytes, const QUuid& id, const QString& name) const;

    /// The content of the item's file with that name. Empty if it is no regular file or has more than `largest` bytes.
    [[nodiscard]] QByteArray read(const QUuid& id, const QString& name, qsizetype largest) const;

    /// Makes the item's folder and calls `putBack` for the file with that name, which moves it there from the Trash.
    /// Does not call it if the file is there already. After a failure there is no folder.
    [[nodiscard]] std::optional<Failure>
    putBack(const QUuid& id, const QString& name,
            const std::function<std::optional<Failure>(const QUrl&)>& putBack) const;

    /// The ids of all item folders; no list if they cannot be listed completely.
    [[nodiscard]] std::optional<QList<QUuid>> folders() const;

    /// Whether no entry was added to the item's folder or removed from it since `time`.
    [[nodiscard]] bool isUnchangedSince(const QUuid& id, const QDateTime& time) const;

    /// Removes the files in the item's folder that a crash left half written and that nobody has written to since that
    /// time.
    void removeUnfinished(const QUuid& id, const QDateTime& unchangedSince) const;

    /// Deletes the item's folder and everything in it, as far as that is possible.
    void removeFolder(const QUuid& id) const;

    /// Moves everything in the item's folder to the Trash with `moveToTrash`, then deletes the folder. Stops at the
    /// first failure.
    void trashFolder(const QUuid& id, const std::function<std::optional<Failure>(const QUrl&)>& moveToTrash) const;

private:
    /// The entries of the item's folder, unsorted; no list if they cannot be listed completely.
    [[nodiscard]] std::optional<QList<QUrl>> contents(const QUuid& id) const;
    [[nodiscard]] QUrl folder(const QUuid& id) const;
    [[nodiscard]] bool leadsElsewhere(const QUuid& id) const;

    QUrl m_directory;
};

} // namespace nookle
