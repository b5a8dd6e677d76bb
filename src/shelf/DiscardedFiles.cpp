#include "DiscardedFiles.h"

#include "ItemFiles.h"
#include "MainQueue.h"

#include <QDeadlineTimer>

#include <iterator>
#include <utility>

namespace nookle {

namespace {

inline constexpr std::size_t mostAtOnce = 10;

/// In seconds. The first one leaves the index time to be saved.
inline constexpr double pauseForIndex = 0.5;
inline constexpr double pause = 0.005;

} // namespace

DiscardedFiles::DiscardedFiles(const ItemFiles& files, MoveToTrash moveToTrash, MainQueue& queue,
                               std::chrono::milliseconds patienceAtEnd)
    : m_files(files)
    , m_moveToTrash(std::move(moveToTrash))
    , m_queue(queue)
    , m_patienceAtEnd(patienceAtEnd)
{
}

DiscardedFiles::~DiscardedFiles()
{
    const QDeadlineTimer deadline(m_patienceAtEnd);
    for (auto image = m_left.cbegin(); image != m_left.cend() && !deadline.hasExpired(); ++image)
        discard(*image);
}

void DiscardedFiles::discard(const QSet<QUuid>& ids, const QList<ShelfItem>& items)
{
    std::deque<Image> images = imagesOf(items);
    QSet<QUuid> later;
    if (images.size() > mostAtOnce) {
        for (const Image& image : images)
            later.insert(image.id);
        std::move(images.begin(), images.end(), std::back_inserter(m_left));
        m_next = m_queue.after(pauseForIndex, [this] { discardNext(); });
    } else {
        for (const Image& image : images)
            discard(image);
    }
    for (const QUuid& id : ids) {
        if (!later.contains(id))
            m_files.removeFolder(id);
    }
}

/// Those whose file is there. Of items with one id the first counts.
std::deque<DiscardedFiles::Image> DiscardedFiles::imagesOf(const QList<ShelfItem>& items) const
{
    std::deque<Image> images;
    QSet<QUuid> seen;
    for (const ShelfItem& item : items) {
        const auto* image = std::get_if<ImageContent>(&item.content);
        if (image && !seen.contains(item.id) && m_files.existingFile(item.id, image->fileName))
            images.push_back({ item.id, image->fileName });
        seen.insert(item.id);
    }
    return images;
}

void DiscardedFiles::discard(const Image& image) const
{
    // If this fails, the file is deleted with the item's folder.
    if (const auto url = m_files.existingFile(image.id, image.fileName))
        static_cast<void>(m_moveToTrash(*url));
    m_files.removeFolder(image.id);
}

void DiscardedFiles::discardNext()
{
    discard(m_left.front());
    m_left.pop_front();
    m_next.reset();
    if (!m_left.empty())
        m_next = m_queue.after(pause, [this] { discardNext(); });
}

void DiscardedFiles::keep(const QList<ShelfItem>& items)
{
    QSet<QUuid> ids;
    for (const ShelfItem& item : items)
        ids.insert(item.id);
    std::erase_if(m_left, [&](const Image& image) { return ids.contains(image.id); });
    if (m_left.empty())
        m_next.reset();
}

} // namespace nookle
