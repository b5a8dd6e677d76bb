#include "DragOutWatch.h"

#include "ShelfItemActions.h"
#include "ShelfStore.h"

#include <utility>

namespace nookle {

DragOutWatch::DragOutWatch(const DraggedImage::Services& services, ShelfItemActions& actions)
    : m_store(services.store)
    , m_actions(actions)
    , m_trash(services.references, services.trash, services.queue)
    , m_images(services)
{
}

void DragOutWatch::begin(const ShelfItem& item)
{
    m_images.begin(item);
    const auto* file = std::get_if<FileContent>(&item.content);
    m_hasFile = m_store.localURL(item).has_value();
    m_trash.begin(file && m_hasFile ? file->bookmark : m_images.reference());
}

void DragOutWatch::end(const ShelfItem& item, DragOperation operation)
{
    // During the drag the store may have noticed that the file has moved to the Trash.
    const bool hasFile = std::exchange(m_hasFile, false) || m_store.localURL(item).has_value();
    // If no destination accepted the drag, a later move of the file to the Trash has nothing to do with it.
    if (hasFile && operation == DragOperation::none)
        m_trash.end();
    else if (hasFile && m_trash.isInTrash())
        operation = DragOperation::remove;
    m_actions.dragEnded(item, operation);
    if (hasFile && operation != DragOperation::remove && operation != DragOperation::none)
        keepLooking(item);
    else
        m_images.end();
}

void DragOutWatch::keepLooking(const ShelfItem& item)
{
    const auto onTrashed = [this, item] { m_actions.dragEnded(item, DragOperation::remove); };
    m_trash.keepLooking(onTrashed);
    m_images.keepLooking(onTrashed);
}

} // namespace nookle
