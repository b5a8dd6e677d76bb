#include "DragOut.h"

#include "DragPictures.h"
#include "DragSession.h"
#include "FanPicture.h"
#include "ItemsPayload.h"
#include "Overloaded.h"
#include "ShelfStore.h"
#include "TrashedItems.h"

#include <QHash>
#include <QWidget>

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

namespace nookle {

namespace {

[[nodiscard]] DragOperations operationsOfAll(const QList<ShelfItem>& items)
{
    DragOperations all = DragOut::allowedOperations(items.first());
    for (const ShelfItem& item : items)
        all &= DragOut::allowedOperations(item);
    return all;
}

} // namespace

DragOut::DragOut(const Services& services, const QWidget& view)
    : m_services(services)
    , m_view(view)
    , m_watch({ services.store, services.references, services.trash, services.queue },
              [this](const QList<ShelfItem>& items) { removeTrashed(items, m_services.store, m_services.trash); })
{
}

DragOperations DragOut::allowedOperations(const ShelfItem& item)
{
    using Operation = DragOperation;
    return std::visit(overloaded{
                          [](const FileContent&) -> DragOperations {
                              return Operation::copy | Operation::generic | Operation::move | Operation::remove;
                          },
                          [](const TextContent&) -> DragOperations {
                              return Operation::copy | Operation::generic | Operation::remove;
                          },
                          [](const LinkContent&) -> DragOperations {
                              return Operation::copy | Operation::link | Operation::generic | Operation::remove;
                          },
                          [](const ImageContent&) -> DragOperations { return Operation::copy | Operation::remove; },
                      },
                      item.content);
}

std::optional<DragItem> DragOut::begin(const QList<ShelfItem>& items)
{
    m_watch.lookAgain(items);
    // The shelf may have been on the screen for hours.
    m_services.store.refreshFiles();
    const QList<CarriedItem> carried = carriedItems(items);
    QList<ShelfItem> dragged;
    for (const CarriedItem& each : carried)
        dragged.append(each.item);
    const bool mayBeMoved = m_watch.begin(dragged);
    if (dragged.isEmpty())
        return std::nullopt;
    DragItem drag;
    drag.payload = std::make_shared<const DragPayload>(itemsPayload(carried, m_services.transfers));
    drag.allowed = operationsOfAll(dragged);
    if (!mayBeMoved)
        drag.allowed &= DragOperation::copy;
    addPicture(drag, carried);
    return drag;
}

QList<CarriedItem> DragOut::carriedItems(const QList<ShelfItem>& items) const
{
    QHash<QUuid, ShelfItem> present;
    for (const ShelfItem& item : m_services.store.items())
        present.insert(item.id, item);
    QList<ShelfItem> onShelf;
    for (const ShelfItem& item : items) {
        if (const auto found = present.constFind(item.id); found != present.constEnd())
            onShelf.append(*found);
    }
    return presentItems(onShelf, m_services.store);
}

void DragOut::addPicture(DragItem& drag, const QList<CarriedItem>& items) const
{
    if (items.size() > 1) {
        addFan(drag, items);
        return;
    }
    const ShelfItem& item = items.first().item;
    drag.picture = itemPicture(items.first(), m_services.store.isFolder(item), thumbnailOf(item));
    drag.pictureSize = dragPictureSize(drag.picture.deviceIndependentSize());
}

void DragOut::addFan(DragItem& drag, const QList<CarriedItem>& items) const
{
    const double scale = m_view.devicePixelRatioF();
    std::vector<QPixmap> pictures;
    for (const CarriedItem& carried : items.first(std::min<qsizetype>(items.size(), mostInFan)))
        pictures.push_back(cardPicture(carried, m_services.store.isFolder(carried.item), thumbnailOf(carried.item),
                                       m_view.palette(), scale));
    drag.picture = fanPicture(pictures, items.size(), m_view.palette(), scale);
    drag.pictureSize = fanSize;
}

} // namespace nookle
