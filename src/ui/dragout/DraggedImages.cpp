#include "DraggedImages.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace nookle {

namespace {

[[nodiscard]] QSet<QUuid> imagesAmong(const QList<ShelfItem>& items)
{
    QSet<QUuid> images;
    for (const ShelfItem& item : items) {
        if (std::holds_alternative<ImageContent>(item.content))
            images.insert(item.id);
    }
    return images;
}

} // namespace

DraggedImages::DraggedImages(DraggedImage::Services services)
    : m_services(services)
{
}

void DraggedImages::lookAgain(const QList<ShelfItem>& items)
{
    const QSet<QUuid> images = imagesAmong(items);
    for (const auto& each : m_watched) {
        if (images.contains(each->id()))
            each->lookNow();
    }
    forgetThoseThatAreDone();
}

bool DraggedImages::begin(const QList<ShelfItem>& items)
{
    forgetThoseThatAreDone();
    end();
    const QSet<QUuid> images = imagesAmong(items);
    const auto others = std::count_if(m_watched.begin(), m_watched.end(),
                                      [&](const auto& each) { return !images.contains(each->id()); });
    if (static_cast<std::size_t>(others + images.size()) > mostHeld)
        return false;
    for (const ShelfItem& item : items) {
        if (images.contains(item.id))
            m_current.push_back(take(item));
    }
    return std::none_of(m_current.begin(), m_current.end(), [](const auto& each) { return each->isDone(); });
}

/// Goes on with the watch over the item, or begins to hold it.
std::unique_ptr<DraggedImage> DraggedImages::take(const ShelfItem& item)
{
    const auto known =
        std::find_if(m_watched.begin(), m_watched.end(), [&](const auto& each) { return each->id() == item.id; });
    if (known == m_watched.end())
        return std::make_unique<DraggedImage>(m_services, item);
    std::unique_ptr<DraggedImage> image = std::move(*known);
    m_watched.erase(known);
    return image;
}

void DraggedImages::keepLooking(const std::function<void(const ShelfItem&)>& onTrashed)
{
    for (const auto& each : m_current)
        each->keepLooking([onTrashed, item = each->item()] { onTrashed(item); });
    end();
}

void DraggedImages::end()
{
    std::erase_if(m_current, [](const auto& each) { return !each->isLooking(); });
    std::move(m_current.begin(), m_current.end(), std::back_inserter(m_watched));
    m_current.clear();
}

QByteArray DraggedImages::reference(const QUuid& id) const
{
    const auto found =
        std::find_if(m_current.begin(), m_current.end(), [&](const auto& each) { return each->id() == id; });
    return found == m_current.end() ? QByteArray() : (*found)->reference();
}

void DraggedImages::lookNow()
{
    for (const auto* images : { &m_current, &m_watched }) {
        for (const auto& each : *images)
            each->lookNow();
    }
    forgetThoseThatAreDone();
}

void DraggedImages::forgetThoseThatAreDone()
{
    std::erase_if(m_watched, [](const auto& each) { return each->isDone(); });
}

} // namespace nookle
