#include "RemovedItems.h"

#include "FileUrl.h"
#include "ItemFiles.h"
#include "Overloaded.h"
#include "ShelfIndex.h"
#include "Trash.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

namespace nookle {

namespace {

inline constexpr std::size_t mostSteps = 50;

/// In bytes, for all steps together. The last step is kept whatever its size.
inline constexpr qsizetype largestSize = 16 << 20;

/// In bytes. A favicon of more is not kept.
inline constexpr qsizetype largestIcon = 1 << 20;

/// `items` with each of `back` before the item that was the next one below it in `order` and still is on the shelf.
[[nodiscard]] QList<ShelfItem> merged(const QList<ShelfItem>& items, const QList<ShelfItem>& back,
                                      const QList<QUuid>& order)
{
    QSet<QUuid> present;
    for (const ShelfItem& item : items)
        present.insert(item.id);
    QHash<QUuid, QList<const ShelfItem*>> waiting;
    for (const ShelfItem& item : back)
        waiting[item.id].append(&item);
    // From the bottom, as the order is walked.
    QHash<QUuid, QList<const ShelfItem*>> before;
    QUuid next;
    for (auto id = order.crbegin(); id != order.crend(); ++id) {
        const QList<const ShelfItem*> found = waiting.take(*id);
        if (present.contains(*id))
            next = *id;
        else
            std::copy(found.crbegin(), found.crend(), std::back_inserter(before[next]));
    }
    QList<ShelfItem> result;
    const auto appendBefore = [&](const QUuid& id) {
        const QList<const ShelfItem*> found = before.take(id);
        std::for_each(found.crbegin(), found.crend(), [&](const ShelfItem* item) { result.append(*item); });
    };
    for (const ShelfItem& item : items) {
        appendBefore(item.id);
        result.append(item);
    }
    appendBefore(QUuid());
    return result;
}

/// What items hold, for the question whether the same has been added anew.
class Contents final {
public:
    Contents(const QList<ShelfItem>& items, const QHash<QUuid, QUrl>& fileUrls)
    {
        for (const ShelfItem& item : items)
            std::visit(overloaded{ [&](const TextContent& text) { m_texts.insert(text.text); },
                                   [&](const LinkContent& link) { m_links.insert(link.url.absoluteString()); },
                                   [&](const FileContent&) { addFile(fileUrls.value(item.id)); },
                                   [](const ImageContent&) {} },
                       item.content);
    }

    /// `file` is the place of a referenced file. An image is never the same as another one.
    [[nodiscard]] bool contain(const ShelfItem& item, const std::optional<QUrl>& file) const
    {
        return std::visit(
            overloaded{ [&](const TextContent& text) { return m_texts.contains(text.text); },
                        [&](const LinkContent& link) { return m_links.contains(link.url.absoluteString()); },
                        [&](const FileContent&) { return file && m_paths.contains(standardizedPath(*file)); },
                        [](const ImageContent&) { return false; } },
            item.content);
    }

private:
    void addFile(const QUrl& file)
    {
        if (const QByteArray path = standardizedPath(file); !path.isEmpty())
            m_paths.insert(path);
    }

    QSet<QString> m_texts;
    QSet<QString> m_links;
    QSet<QByteArray> m_paths;
};

} // namespace

RemovedItems::RemovedItems(const ItemFiles& files, const Trash& trash, PutBack putBack)
    : m_files(files)
    , m_trash(trash)
    , m_putBack(std::move(putBack))
{
}

void RemovedItems::keep(const QSet<QUuid>& ids, const QList<ShelfItem>& items, const QHash<QUuid, QUrl>& fileUrls,
                        const QDateTime& now)
{
    Step step;
    step.time = now;
    for (const ShelfItem& item : items) {
        step.order.append(item.id);
        if (!ids.contains(item.id))
            continue;
        Entry entry{ item, {}, {} };
        if (const auto url = fileUrls.constFind(item.id); url != fileUrls.constEnd())
            entry.file = *url;
        if (const auto* link = std::get_if<LinkContent>(&item.content); link && link->hasIcon)
            entry.icon = m_files.read(item.id, ItemFiles::iconName(), largestIcon);
        step.size += ShelfIndex::upperBound({ item }) + entry.icon.size();
        step.entries.push_back(std::move(entry));
    }
    if (step.entries.empty())
        return;
    step.size += step.order.size() * qsizetype(sizeof(QUuid));
    m_steps.push_back(std::move(step));
    dropOldSteps();
}

void RemovedItems::dropOldSteps()
{
    qsizetype sum = std::accumulate(m_steps.begin(), m_steps.end(), qsizetype{ 0 },
                                    [](qsizetype size, const Step& step) { return size + step.size; });
    while (m_steps.size() > 1 && (sum > largestSize || m_steps.size() > mostSteps)) {
        sum -= m_steps.front().size;
        m_steps.pop_front();
    }
}

void RemovedItems::forgetPlaces(const QSet<QUuid>& ids)
{
    if (ids.isEmpty())
        return;
    for (Step& step : m_steps)
        step.order.removeIf([&](const QUuid& id) { return ids.contains(id); });
}

QList<ShelfItem> RemovedItems::last() const
{
    QList<ShelfItem> items;
    for (const Entry& entry : m_steps.back().entries)
        items.append(entry.item);
    return items;
}

RemovedItems::Return RemovedItems::putBackLast(QList<ShelfItem>& items, const QHash<QUuid, QUrl>& fileUrls,
                                               const QDateTime& now)
{
    Step step = std::move(m_steps.back());
    m_steps.pop_back();
    const QSet<QUuid> known(step.order.begin(), step.order.end());
    QList<ShelfItem> newItems = items;
    newItems.removeIf([&](const ShelfItem& item) { return known.contains(item.id); });
    const Contents added(newItems, fileUrls);

    Return result;
    std::vector<Entry> left;
    for (const Entry& entry : step.entries) {
        if (added.contain(entry.item, entry.file))
            continue;
        std::optional<ShelfItem> item = withFiles(entry);
        if (!item) {
            result.missing.append(entry.item.shownName());
            if (isInTrash(entry.item))
                left.push_back(entry);
            continue;
        }
        item->createdAt = item->createdAt.addMSecs(std::max<qint64>(0, step.time.msecsTo(now)));
        result.items.append(*std::move(item));
    }
    items = merged(items, result.items, step.order);
    step.entries = std::move(left);
    if (!step.entries.empty())
        m_steps.insert(m_steps.empty() ? m_steps.end() : std::prev(m_steps.end()), std::move(step));
    return result;
}

std::optional<ShelfItem> RemovedItems::withFiles(const Entry& entry) const
{
    ShelfItem item = entry.item;
    if (const auto* image = std::get_if<ImageContent>(&item.content)) {
        if (m_files.putBack(item.id, image->fileName, m_putBack))
            return std::nullopt;
    } else if (auto* link = std::get_if<LinkContent>(&item.content); link && link->hasIcon) {
        link->hasIcon = !entry.icon.isEmpty() && !m_files.write(entry.icon, item.id, ItemFiles::iconName());
    }
    return item;
}

bool RemovedItems::isInTrash(const ShelfItem& item) const
{
    const auto* image = std::get_if<ImageContent>(&item.content);
    const auto place = image ? m_files.file(item.id, image->fileName) : std::nullopt;
    return place && m_trash.canPutBack(*place);
}

} // namespace nookle
