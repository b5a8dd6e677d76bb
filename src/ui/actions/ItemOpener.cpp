#include "ItemOpener.h"

#include "MainQueue.h"
#include "ShelfStore.h"

#include <algorithm>

namespace nookle {

namespace {

/// In seconds.
inline constexpr double pause = 0.005;

} // namespace

ItemOpener::ItemOpener(const ShelfItemActions& actions, const ShelfStore& store, MainQueue& queue)
    : m_actions(actions)
    , m_store(store)
    , m_queue(queue)
{
}

void ItemOpener::open(const QList<ShelfItem>& items)
{
    m_left += items;
    if (!m_next)
        openNext();
}

void ItemOpener::openNext()
{
    m_next.reset();
    while (!m_left.isEmpty() && !isOnShelf(m_left.constFirst()))
        m_left.removeFirst();
    if (m_left.isEmpty())
        return;
    const ShelfItem item = m_left.takeFirst();
    m_next = m_queue.after(pause, [this] { openNext(); });
    m_actions.open(item);
}

bool ItemOpener::isOnShelf(const ShelfItem& item) const
{
    const QList<ShelfItem>& items = m_store.items();
    return std::any_of(items.begin(), items.end(), [&](const ShelfItem& each) { return each.id == item.id; });
}

} // namespace nookle
