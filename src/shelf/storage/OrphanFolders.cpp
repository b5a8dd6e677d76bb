#include "OrphanFolders.h"

#include "ItemFiles.h"
#include "SavedIndex.h"

#include <QSet>
#include <QUuid>

#include <utility>

namespace nookle {

void removeOrphanFolders(const QList<ShelfItem>& items, const ItemFiles& itemFiles, const SavedIndex& index,
                         const QDateTime& time, const std::function<std::optional<Failure>(const QUrl&)>& moveToTrash)
{
    const auto folders = itemFiles.folders();
    if (!folders)
        return;
    for (const QUuid& id : *folders)
        itemFiles.removeUnfinished(id, time);
    QSet<QUuid> orphans(folders->begin(), folders->end());
    for (const ShelfItem& item : items)
        orphans.remove(item.id);
    if (orphans.isEmpty())
        index.forgetLostIndex();
    if (!index.namesEveryItem())
        return;
    for (const QUuid& id : std::as_const(orphans)) {
        if (itemFiles.isUnchangedSince(id, time))
            itemFiles.trashFolder(id, moveToTrash);
    }
}

} // namespace nookle
