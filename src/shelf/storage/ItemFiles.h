#pragma once

#include "Failure.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QUrl>
#include <QUuid>

#include <optional>

namespace nookle {

/// The files that the shelf owns: below one folder, a folder for each item that owns a file, named by the item's id.
/// Nothing outside an item's own folder is ever reached through this class, whatever name it is given, and whatever
/// link stands in place of the folder or of the one above it.
class ItemFiles {
public:
    explicit ItemFiles(const QUrl& directory);

    /// The name under which a file from outside is kept: its own, with "_" for bytes that are not UTF-8, because the
    /// index can only name files by text.
    [[nodiscard]] static QString storedName(const QUrl& source);

    /// The item's file of that name, whether or not it exists; none for a name that is not a plain file name, such as
    /// a hostile index might hold, and none where a link stands for a folder.
    [[nodiscard]] std::optional<QUrl> file(const QUuid& id, const QString& name) const;

    /// The same, if it exists.
    [[nodiscard]] std::optional<QUrl> existingFile(const QUuid& id, const QString& name) const;

    /// Moves a file from outside into the item's folder, making that first. After a failure the file is where it was.
    [[nodiscard]] std::optional<Failure> takeOver(const QUrl& source, const QUuid& id, const QString& name) const;

    /// Writes a file into the item's folder, making that first.
    [[nodiscard]] std::optional<Failure> write(const QByteArray& bytes, const QUuid& id, const QString& name) const;

    /// The ids of all item folders; no list if they cannot all be found.
    [[nodiscard]] std::optional<QList<QUuid>> folders() const;

    /// Whether nothing has come to the item's folder and nothing has gone from it since that time.
    [[nodiscard]] bool isUnchangedSince(const QUuid& id, const QDateTime& time) const;

    /// What is in the item's folder, in no order; no list if that cannot all be found.
    [[nodiscard]] std::optional<QList<QUrl>> contents(const QUuid& id) const;

    /// Removes the files in the item's folder that a crash left half written and that nobody has written to since that
    /// time.
    void removeUnfinished(const QUuid& id, const QDateTime& unchangedSince) const;

    /// Deletes the item's folder and everything in it, as far as that is possible.
    void removeFolder(const QUuid& id) const;

    /// The same for a folder with nothing in it; any other one stays.
    void removeEmptyFolder(const QUuid& id) const;

private:
    [[nodiscard]] QUrl folder(const QUuid& id) const;
    [[nodiscard]] bool leadsElsewhere(const QUuid& id) const;

    QUrl m_directory;
};

} // namespace nookle
