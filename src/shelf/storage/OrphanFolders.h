#pragma once

#include "Failure.h"
#include "ShelfItem.h"

#include <QDateTime>
#include <QList>
#include <QUrl>

#include <functional>
#include <optional>

namespace nookle {

class ItemFiles;
class SavedIndex;

/// Removes what a crash left in the folders of the items and has not changed since `time`. Half-written files are
/// deleted. The content of folders whose item is not among `items` goes to the Trash. Such folders are kept while a
/// lost or unreadable index may name them.
void removeOrphanFolders(const QList<ShelfItem>& items, const ItemFiles& itemFiles, const SavedIndex& index,
                         const QDateTime& time, const std::function<std::optional<Failure>(const QUrl&)>& moveToTrash);

} // namespace nookle
