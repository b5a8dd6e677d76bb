#pragma once

#include "Failure.h"
#include "ItemFiles.h"
#include "LinkLookups.h"
#include "ReferencedFiles.h"
#include "SavedIndex.h"
#include "ShelfItem.h"

#include <QDateTime>
#include <QHash>
#include <QList>
#include <QObject>
#include <QSet>
#include <QUrl>
#include <QUuid>

#include <functional>
#include <optional>

namespace nookle {

class FileReferences;
class LinkMetadataService;
class MainQueue;
class Trash;

/// The single owner of the items on the shelf and of the files that belong to them: every change goes through here, is
/// told to whoever watches, and is saved 0.3 seconds after the last one. What the store is given must outlive it. Main
/// thread only.
class ShelfStore final : public QObject {
    Q_OBJECT

public:
    /// The store's outside world.
    struct Environment {
        std::function<QDateTime()> now = [] { return QDateTime::currentDateTimeUtc(); };
        /// Must be set: moves the file at a URL to the Trash.
        std::function<std::optional<Failure>(const QUrl&)> moveToTrash;
        bool fetchesLinkMetadata = true;
        /// Keeps other programs away from the data folder, which exists by then. Called before each save: the folder
        /// may be another one than before. After a failure nothing is saved.
        std::function<std::optional<Failure>()> claimFolder = [] { return std::optional<Failure>(); };
        /// In bytes. What would make the index larger is not added.
        qsizetype largestIndex = ShelfIndex::largestSize;
    };

    /// Reads the shelf that is kept in the folder `directory`. Neither the folder nor anything in it need exist, and
    /// nothing is made before there is something to save.
    ShelfStore(const QUrl& directory, Environment environment, FileReferences& fileReferences, const Trash& trash,
               LinkMetadataService& linkMetadata, MainQueue& queue);
    ~ShelfStore() override;

    /// In display order: what was last added, or added again, is first.
    [[nodiscard]] const QList<ShelfItem>& items() const { return m_items; }

    /// Where the file of each file item was at the last look; no entry for one that is gone or in the Trash.
    [[nodiscard]] const QHash<QUuid, QUrl>& fileURLs() const { return m_files.urls(); }

    /// Adds files and folders by reference, the first one on top. A file that is on the shelf moves to the top; a URL
    /// given twice counts twice. What cannot be referred to is left out.
    void addFiles(const QList<QUrl>& urls);

    /// Adds text as it is, or a link if it is a web address; nothing if it is only white space.
    void addText(const QString& text);

    /// Adds a link and looks its page up. A link that is on the shelf moves to the top and keeps its title. What is
    /// kept of a title, here and in `updateLink`, is what `cleanedTitle` leaves of it.
    void addLink(const LinkUrl& url, const std::optional<QString>& title);

    /// Moves an image file into the shelf's own folder and adds it. If that fails it is logged and told, and the file
    /// stays where it was.
    void addImage(const QUrl& movingFrom);

    /// An image that should have been added was lost on its way here: tells so as `addImage` does.
    void imageNotAdded(const QString& reason);

    /// Puts `bytes` in the place of the file of an image, whose own another program has taken away. Nothing for an id
    /// that is no image's.
    [[nodiscard]] std::optional<Failure> restoreImage(QUuid id, const QByteArray& bytes);

    void togglePinned(QUuid id);

    /// Takes an item off the shelf. An image goes to the Trash; a file that is only referred to is not touched.
    void remove(QUuid id);

    /// Removes the items that are older than `maxAge` seconds and not pinned.
    void removeExpired(double maxAge);

    /// Changes what is given of a link's title and icon flag. Saves even if nothing differs.
    void updateLink(QUuid id, const std::optional<QString>& title, std::optional<bool> hasIcon);

    /// The file that stands for the item: where a referenced file is now, or where an image is kept, whether or not it
    /// exists; none for an image whose name could lead out of its folder.
    [[nodiscard]] std::optional<QUrl> localURL(const ShelfItem& item) const;

    /// Whether the item stands for a folder, as far as that is known without looking at it.
    [[nodiscard]] bool isFolder(const ShelfItem& item) const;

    /// The saved favicon of a link.
    [[nodiscard]] std::optional<QUrl> iconURL(const ShelfItem& item) const;

    /// Looks where the referenced files are now, and takes over their new places and names.
    void refreshFiles();

    /// Clears away what a crash may leave, once it has not changed for a day: files half written, and the folders of
    /// items that are not on the shelf, whose content goes to the Trash. Folders stay while an index that was lost or
    /// could not be read may name them.
    void removeOrphans();

    /// Writes the index at once, in place of a pending save, and waits until that is done. A failure is logged.
    void saveNow();

Q_SIGNALS:
    /// Told after the change. A listener may change the store again.
    void itemsChanged();
    void fileURLsChanged();

    /// Something was not added. `reason` is for the user.
    void additionFailed(const QString& reason);

private:
    void removeOrphan(const QUuid& id) const;
    /// Whether the index can take the items too; says so if not.
    [[nodiscard]] bool hasRoomFor(const QList<ShelfItem>& additions);

    [[nodiscard]] QDateTime now() const;
    [[nodiscard]] qsizetype indexOf(const QUuid& id) const;
    [[nodiscard]] ShelfItem makeItem(ShelfItem::Content content) const;
    void moveToTop(qsizetype index);
    void removeAll(const QSet<QUuid>& ids);
    void moveImageToTrash(const ShelfItem& item) const;
    void saveIcon(const QByteArray& png, QUuid id);

    QList<ShelfItem> m_items;
    Environment m_environment;
    QUrl m_directory;
    ItemFiles m_itemFiles;
    ReferencedFiles m_files;
    SavedIndex m_index;
    LinkLookups m_lookups;
};

} // namespace nookle
