#include "TileHover.h"

#include "ShelfItemView.h"
#include "TileList.h"

#include <utility>

namespace nookle {

TileHover::TileHover(TileList& tiles)
    : m_tiles(tiles)
{
}

void TileHover::change(const QUuid& id, bool isInside)
{
    if (isInside)
        set(id);
    else if (m_id == id)
        clear();
}

void TileHover::setSuspended(bool isSuspended)
{
    m_isSuspended = isSuspended;
    update(m_id);
}

void TileHover::set(const std::optional<QUuid>& id)
{
    const std::optional<QUuid> previous = std::exchange(m_id, id);
    if (previous == id)
        return;
    update(previous);
    update(id);
}

void TileHover::update(const std::optional<QUuid>& id)
{
    if (ShelfItemView* tile = id ? m_tiles.tile(*id) : nullptr)
        tile->setHovered(shows(*id));
}

} // namespace nookle
