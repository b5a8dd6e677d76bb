#include "DragOutWatch.h"

#include <algorithm>
#include <utility>

namespace nookle {

namespace {

[[nodiscard]] bool hasFile(const ShelfItem& item)
{
    return std::holds_alternative<FileContent>(item.content) || std::holds_alternative<ImageContent>(item.content);
}

} // namespace

DragOutWatch::DragOutWatch(const DraggedImage::Services& services, OnTrashed onTrashed)
    : m_onTrashed(std::move(onTrashed))
    , m_trash(services.references, services.trash, services.queue)
    , m_images(services)
{
}

void DragOutWatch::lookAgain(const QList<ShelfItem>& items)
{
    m_images.lookAgain(items);
    m_trash.lookNow();
}

bool DragOutWatch::begin(const QList<ShelfItem>& items)
{
    const bool holdsImages = m_images.begin(items);
    m_dragged.clear();
    std::vector<QByteArray> references;
    for (const ShelfItem& item : items) {
        m_dragged.push_back({ item, referenceOf(item) });
        if (!m_dragged.back().reference.isEmpty())
            references.push_back(m_dragged.back().reference);
    }
    m_trash.begin(std::move(references));
    return holdsImages;
}

QByteArray DragOutWatch::referenceOf(const ShelfItem& item) const
{
    const auto* file = std::get_if<FileContent>(&item.content);
    return file ? file->bookmark : m_images.reference(item.id);
}

void DragOutWatch::end(DragOperation operation)
{
    if (operation == DragOperation::remove)
        leave([](const Dragged&) { return true; });
    // If no destination accepted the drag, a later move of a file to the Trash has nothing to do with it.
    else if (operation != DragOperation::none)
        filesTrashed(m_trash.takeTrashed());
    else
        m_dragged.clear();
    if (!hasFilesLeft()) {
        m_trash.end();
        m_images.end();
        return;
    }
    m_trash.keepLooking([this](const QSet<QByteArray>& references) { filesTrashed(references); });
    m_images.keepLooking([this](const ShelfItem& image) { imageTrashed(image); });
}

void DragOutWatch::filesTrashed(const QSet<QByteArray>& references)
{
    leave([&](const Dragged& each) { return references.contains(each.reference); });
}

// The image may belong to an earlier drag.
void DragOutWatch::imageTrashed(const ShelfItem& image)
{
    const auto isImage = [&](const Dragged& each) { return each.item.id == image.id; };
    if (std::any_of(m_dragged.begin(), m_dragged.end(), isImage))
        leave(isImage);
    else
        m_onTrashed({ image });
}

template <typename Matches> void DragOutWatch::leave(Matches matches)
{
    QList<ShelfItem> gone;
    const auto takeIf = [&](const auto& predicate) {
        for (const Dragged& each : m_dragged) {
            if (predicate(each))
                gone.append(each.item);
        }
        std::erase_if(m_dragged, predicate);
    };
    takeIf(matches);
    if (gone.isEmpty())
        return;
    if (!hasFilesLeft())
        takeIf([](const Dragged&) { return true; });
    m_onTrashed(gone);
}

bool DragOutWatch::hasFilesLeft() const
{
    return std::any_of(m_dragged.begin(), m_dragged.end(), [](const Dragged& each) { return hasFile(each.item); });
}

} // namespace nookle
