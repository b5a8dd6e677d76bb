#include "ReaddedFiles.h"

#include "FileUrls.h"

#include <algorithm>
#include <functional>

namespace nookle {

ReaddedFiles::ReaddedFiles(const QList<ShelfItem>& items, const FileUrls& fileUrls)
    : m_items(items)
    , m_fileUrls(fileUrls)
{
}

std::optional<ShelfItem> ReaddedFiles::take(const QByteArray& standardizedPath)
{
    auto waiting = m_waiting.find(standardizedPath);
    if (waiting == m_waiting.end()) {
        const QList<qsizetype> places = placesOfItemsAt(standardizedPath);
        if (places.isEmpty())
            return {};
        waiting = m_waiting.insert(standardizedPath, places);
    }
    if (waiting->isEmpty())
        return {};
    const ShelfItem& item = m_items.at(waiting->takeLast());
    m_taken.insert(item.id);
    return item;
}

QList<qsizetype> ReaddedFiles::placesOfItemsAt(const QByteArray& standardizedPath)
{
    QList<qsizetype> places;
    for (const QUuid& id : m_fileUrls.idsAt(standardizedPath)) {
        findPlaces();
        if (const auto place = m_places.constFind(id); place != m_places.constEnd())
            places.append(*place);
    }
    std::sort(places.begin(), places.end(), std::greater());
    return places;
}

void ReaddedFiles::findPlaces()
{
    if (!m_places.isEmpty())
        return;
    m_places.reserve(m_items.size());
    for (qsizetype place = m_items.size() - 1; place >= 0; --place)
        m_places.insert(m_items.at(place).id, place);
}

} // namespace nookle
