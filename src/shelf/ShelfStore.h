#pragma once

#include "Cancellable.h"
#include "ChangeNotices.h"
#include "Failure.h"
#include "ItemFiles.h"
#include "Lifetime.h"
#include "LinkLookups.h"
#include "ReferencedFiles.h"
#include "RemovedItems.h"
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
#include <memory>
#include <optional>

namespace nookle {

class FileReferences;
class LinkMetadataService;
class MainQueue;
class Trash;

/// The only owner of the items on the shelf and of the files that belong to them. Every change goes through this class.
/// It emits a signal for each change, and saves the shelf 0.3 seconds after the last one. The constructor's arguments
/// must outlive the store. Main thread only.
class ShelfStore final : public QObject {
    Q_OBJECT

public:
    /// The functions and limits that the store depends on.
    struct Environment {
        std::function<QDateTime()> now = [] { return QDateTime::currentDateTimeUtc(); };
        /// Must be set. Moves the file at a URL to the Trash.
        std::function<std::optional<Failure>(const QUrl&)> moveToTrash;
        /// Moves a file that `moveToTrash` has moved back to that URL. Its folder exists, and the file does not.
        std::function<std::optional<Failure>(const QUrl&)> putBack = [](const QUrl&) {
            return Failure{ QStringLiteral("there is no Trash") };
        };
        bool fetchesLinkMetadata = true;
        /// Locks the data folder against other programs. Called before each save, when the folder exists, because the
        /// folder may have been replaced. After a failure nothing is saved.
        std::function<std::optional<Failure>()> claimFolder = [] { return std::optional<Failure>(); };
        /// In bytes. An addition that would bring the index to within 5 % of this size is refused.
        qsizetype largestIndex = ShelfIndex::largestSize;
    };

    /// Reads the shelf from the folder `directory`. The folder need not exist; it is made at the first save.
    ShelfStore(const QUrl& directory, Environment environment, FileReferences& fileReferences, const Trash& trash,
               LinkMetadataService& linkMetadata, MainQueue& queue);
    ~ShelfStore() override;

    /// In display order. The first item is the one that was added, or added again, last.
    [[nodiscard]] const QList<ShelfItem>& items() const { return m_items; }

    /// The last known URL of each file item's file. No entry for a file that is missing or in the Trash.
    [[nodiscard]] const QHash<QUuid, QUrl>& fileURLs() const { return m_files.urls(); }

    /// Adds references to files and folders, the first one on top. The item of a file that is on the shelf moves to the
    /// top. A URL that is given twice makes two items. A file that gets no reference is left out.
    void addFiles(const QList<QUrl>& urls);

    /// Adds `text` unchanged, or as a link if it is a web address. Adds nothing if it is only white space. A text that
    /// is on the shelf moves to the top.
    void addText(const QString& text);

    /// Adds a link and looks up its page. A link that is on the shelf moves to the top and keeps its title. Here and in
    /// `updateLink`, the title is cleaned by `cleanedTitle`.
    void addLink(const LinkUrl& url, const std::optional<QString>& title);

    /// Moves an image file into the shelf's own folder and adds it. A failure is logged and emitted as
    /// `additionFailed`, and the file stays where it was.
    void addImage(const QUrl& movingFrom);

    /// Emits `additionFailed` for an image that was lost before `addImage` could be called.
    void imageNotAdded(const QString& reason);

    /// Writes `bytes` as the file of an image item, after another program has taken the file away. Does nothing if `id`
    /// is not an image's.
    [[nodiscard]] std::optional<Failure> restoreImage(QUuid id, const QByteArray& bytes);

    /// Makes several changes and emits `fileURLsChanged` and `itemsChanged` once, after all of them.
    void changeTogether(const std::function<void()>& changes) { m_changes.together(changes); }

    /// The item does not expire while the result exists: another program may be reading its file.
    [[nodiscard]] std::unique_ptr<Cancellable> keepFromExpiring(QUuid id);

    void togglePinned(QUuid id);

    /// Pins several items, or unpins them, in one change. Does nothing if all of them are as wanted already.
    void setPinned(const QSet<QUuid>& ids, bool pinned);

    /// Removes an item from the shelf. An image goes to the Trash; a referenced file is not touched.
    void remove(QUuid id) { remove(QSet<QUuid>{ id }); }

    /// Removes several items, as one step of `undoRemove`.
    void remove(const QSet<QUuid>& ids);

    /// Removes items whose files are in the Trash. `undoRemove` does not bring them back: they would be unavailable.
    void forget(const QSet<QUuid>& ids) { removeAll(ids); }

    /// Removes all items that are not pinned, as one step of `undoRemove`.
    void removeUnpinned();

    /// Whether anything was removed by `remove` or `removeUnpinned` since the start and has not been brought back.
    [[nodiscard]] bool canUndoRemove() const { return !m_removed.isEmpty(); }

    /// Brings back what was removed last, to its places, but not what has been added anew meanwhile. An image that is
    /// not in the Trash any more is emitted as `additionFailed`.
    void undoRemove();

    /// Removes the unpinned items that are older than `maxAge` seconds.
    void removeExpired(double maxAge);

    /// Sets the title and the icon flag of a link, as far as they are given. Saves even if nothing has changed.
    void updateLink(QUuid id, const std::optional<QString>& title, std::optional<bool> hasIcon);

    /// The file of the item. For a referenced file: its last known URL, none if it is missing. For an image: its file
    /// in the shelf's folder, whether or not it exists; none if the name could lead out of the item's folder.
    [[nodiscard]] std::optional<QUrl> localURL(const ShelfItem& item) const;

    /// Whether the item stands for a folder. Does not wait for a file system that may not answer; false if that is not
    /// known.
    [[nodiscard]] bool isFolder(const ShelfItem& item) const;

    /// The saved favicon of a link.
    [[nodiscard]] std::optional<QUrl> iconURL(const ShelfItem& item) const;

    /// Finds the present places of the referenced files, and updates URLs and names.
    void refreshFiles();

    /// Removes leftovers of a crash that have not changed for a day. Half-written files are deleted. The content of
    /// folders whose item is not on the shelf goes to the Trash. Such folders are kept while a lost or unreadable index
    /// may name them.
    void removeOrphans();

    /// Writes the index at once, in place of a pending save, and waits until it is written or a time limit is over. A
    /// failure is logged.
    void saveNow() { m_index.saveNow(); }

Q_SIGNALS:
    /// Emitted after the change. A listener may change the store again.
    void itemsChanged();
    void fileURLsChanged();

    /// An addition failed. `reason` is a text for the user.
    void additionFailed(const QString& reason);

private:
    /// Whether the index has room for `additions`. If not, emits `additionFailed`.
    [[nodiscard]] bool hasRoomFor(const QList<ShelfItem>& additions);

    [[nodiscard]] QDateTime now() const { return m_environment.now().toUTC(); }
    [[nodiscard]] qsizetype indexOf(const QUuid& id) const;
    [[nodiscard]] ShelfItem makeItem(ShelfItem::Content content) const;
    void moveToTop(qsizetype index);
    void removeAll(const QSet<QUuid>& ids);
    void moveImageToTrash(const ShelfItem& item) const;
    void lookUpIfUnknown(const ShelfItem& item);
    void saveIcon(const QByteArray& png, QUuid id);

    QList<ShelfItem> m_items;
    Environment m_environment;
    QUrl m_directory;
    ItemFiles m_itemFiles;
    ReferencedFiles m_files;
    SavedIndex m_index;
    LinkLookups m_lookups;
    RemovedItems m_removed;
    ChangeNotices m_changes;
    QList<QUuid> m_inUse;
    Lifetime m_lifetime;
};

} // namespace nookle
