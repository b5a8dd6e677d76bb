#include "VisibleTiles.h"

#include "ItemInteractionView.h"
#include "Selection.h"
#include "ShelfItemView.h"
#include "TileLayout.h"

#include <algorithm>
#include <utility>

namespace nookle {

VisibleTiles::VisibleTiles(const Selection& selection)
    : m_selection(selection)
{
}

void VisibleTiles::place(const TileLayout& layout, const View& view, bool refill)
{
    const TileLayout::Range visible = layout.rowsBetween(view.offset, view.offset + view.height);
    QHash<QUuid, ShelfItemView*> unused = std::exchange(m_tiles, {});
    for (std::size_t row = visible.first; row < visible.end; ++row) {
        const QUuid& id = m_selection.rows()[row];
        ShelfItemView* tile = unused.take(id);
        const bool isNew = tile == nullptr;
        if (isNew)
            tile = makeTile(id);
        tile->setGeometry(view.left, layout.top(row) - view.offset, view.width, layout.height(row));
        if (isNew || refill)
            fillTile(*tile, row);
        m_tiles.insert(id, tile);
        tile->show();
    }
    for (auto each = unused.cbegin(); each != unused.cend(); ++each)
        discard(each.key(), *each.value(), layout, view.offset);
}

// A tile may be handling an event right now, so it is deleted later.
void VisibleTiles::discard(const QUuid& id, ShelfItemView& tile, const TileLayout& layout, int offset)
{
    if (!m_isPlacingWithMovement) {
        tile.hide();
        tile.deleteLater();
        return;
    }
    // A tile that is only pushed out of view goes where it belongs.
    const std::optional<std::size_t> row = m_selection.rowOf(id);
    tile.lower();
    m_motion.leave(tile, row ? layout.top(*row) - offset : tile.y());
}

void VisibleTiles::move(const std::function<void()>& placing)
{
    m_motion.interrupt();
    QHash<QUuid, TileMotion::Place> before;
    for (auto each = m_tiles.cbegin(); each != m_tiles.cend(); ++each)
        before.insert(each.key(), { each.value()->y(), each.value()->presence() });
    m_isPlacingWithMovement = true;
    placing();
    m_isPlacingWithMovement = false;
    // Tiles that were in the list, but not in view, fade in as well.
    for (auto each = m_tiles.cbegin(); each != m_tiles.cend(); ++each) {
        ShelfItemView& tile = *each.value();
        const TileMotion::Place from = before.value(each.key(), { tile.y(), 0 });
        if (from.y != tile.y() || from.presence < 1)
            m_motion.come(tile, from);
    }
    m_motion.start();
}

std::vector<ShelfItemView*> VisibleTiles::inOrder() const
{
    std::vector<ShelfItemView*> tiles(m_tiles.begin(), m_tiles.end());
    std::sort(tiles.begin(), tiles.end(), [](const auto* left, const auto* right) { return left->y() < right->y(); });
    return tiles;
}

std::optional<std::size_t> VisibleTiles::rowOfInteraction(const QObject* interaction) const
{
    for (auto each = m_tiles.cbegin(); each != m_tiles.cend(); ++each) {
        if (interaction == &each.value()->interaction())
            return m_selection.rowOf(each.key());
    }
    return std::nullopt;
}

} // namespace nookle
