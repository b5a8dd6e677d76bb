#pragma once

#include "TileMotion.h"

#include <QHash>
#include <QUuid>

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

namespace nookle {

class Selection;
class ShelfItemView;
class TileLayout;

/// The tiles of the rows in view, by the ids of their items. Only these exist as widgets. They come, go and change
/// their places at once or by a short movement. Main thread only.
class VisibleTiles final {
public:
    /// `selection` knows the rows, and must outlive this object.
    explicit VisibleTiles(const Selection& selection);

    /// Makes the tile of the item `id`.
    std::function<ShelfItemView*(const QUuid& id)> makeTile;
    /// Fills the tile of a row.
    std::function<void(ShelfItemView& tile, std::size_t row)> fillTile;

    /// What of the column of tiles is in view, in points.
    struct View {
        int offset = 0;
        int height = 0;
        int left = 0;
        /// The width of the tiles.
        int width = 0;
    };

    /// Brings the tiles of `view` to their places in `layout`, and removes all others. Those that are new are filled;
    /// with `refill`, all are.
    void place(const TileLayout& layout, const View& view, bool refill);

    /// What `place` does within `placing` is done by a movement.
    void move(const std::function<void()>& placing);

    /// True within `move`.
    [[nodiscard]] bool isPlacingWithMovement() const { return m_isPlacingWithMovement; }

    /// Ends a movement: all tiles are where they belong.
    void finishMovement() { m_motion.finish(); }
    [[nodiscard]] bool isMoving() const { return m_motion.isRunning(); }

    /// The tile of the item `id`; null when it is not in view.
    [[nodiscard]] ShelfItemView* tile(const QUuid& id) const { return m_tiles.value(id); }
    [[nodiscard]] const QHash<QUuid, ShelfItemView*>& all() const { return m_tiles; }
    /// From top to bottom.
    [[nodiscard]] std::vector<ShelfItemView*> inOrder() const;
    /// The row of the tile that has this `interaction()`; none for all other objects.
    [[nodiscard]] std::optional<std::size_t> rowOfInteraction(const QObject* interaction) const;

private:
    void discard(const QUuid& id, ShelfItemView& tile, const TileLayout& layout, int offset);

    const Selection& m_selection;
    QHash<QUuid, ShelfItemView*> m_tiles;
    TileMotion m_motion;
    bool m_isPlacingWithMovement = false;
};

} // namespace nookle
