#include "TrashedItems.h"

#include "FileUrl.h"
#include "Log.h"
#include "ShelfStore.h"
#include "Trash.h"

#include <QSet>

#include <algorithm>
#include <filesystem>

namespace nookle {

namespace {

[[nodiscard]] bool isReferredTo(const ShelfItem& item)
{
    return std::holds_alternative<FileContent>(item.content);
}

[[nodiscard]] bool fileExists(const QUrl& file)
{
    std::error_code error;
    return std::filesystem::exists(filePath(file).toStdString(), error);
}

/// Whether the file stays where it is, because it could not be moved.
[[nodiscard]] bool isLeftInPlace(const ShelfItem& item, const ShelfStore& store, Trash& trash)
{
    const std::optional<QUrl> file = store.localURL(item);
    // A referenced file may be on a file system that does not answer. The store knows whether it is there.
    if (!file || (!isReferredTo(item) && !fileExists(*file)))
        return false;
    const auto failure = trash.moveToTrash(*file);
    if (failure)
        logLine(QStringLiteral("moving to Trash failed for %1: %2")
                    .arg(QString::fromUtf8(filePath(*file)), failure->description));
    return failure.has_value();
}

} // namespace

void removeTrashed(const QList<ShelfItem>& items, ShelfStore& store, Trash& trash)
{
    store.changeTogether([&] {
        if (std::any_of(items.begin(), items.end(), isReferredTo))
            store.refreshFiles();
        QSet<QUuid> forgotten;
        QSet<QUuid> removed;
        for (const ShelfItem& item : items) {
            const bool comesBack = isLeftInPlace(item, store, trash) || !isReferredTo(item);
            (comesBack ? removed : forgotten).insert(item.id);
        }
        if (!forgotten.isEmpty())
            store.forget(forgotten);
        if (!removed.isEmpty())
            store.remove(removed);
    });
}

} // namespace nookle
