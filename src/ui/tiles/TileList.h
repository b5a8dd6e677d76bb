#pragma once

#include "TileLayout.h"

#include <QAbstractScrollArea>
#include <QHash>
#include <QUuid>

#include <functional>
#include <optional>
#include <vector>

namespace nookle {

class ShelfItemView;

/// A scrolling column of tiles, of which only those in view exist. One of them is the current one as soon as the list
/// has had the keyboard: it moves with the arrow keys, and its frame shows while they are used.
class TileList final : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit TileList(QWidget* parent = nullptr);

    /// Makes a tile, as a child of the widget handed in; called when a row comes into view.
    std::function<ShelfItemView*(QWidget* parent)> makeTile;
    /// Fills the tile of a row; called when it comes into view, after every change of the rows, and when the list is
    /// shown.
    std::function<void(ShelfItemView& tile, std::size_t row)> fillTile;
    /// The height of a row's tile at a width.
    std::function<int(std::size_t row, int width)> tileHeight;

    /// Replaces the rows, each known by the id of its item. A tile whose id stays is kept. A current row that is gone
    /// hands over to the one that takes its place. The tiles follow as soon as the list can be seen.
    void setRows(std::vector<QUuid> ids);

    /// The tile of that item; null when it is not in view.
    [[nodiscard]] ShelfItemView* tile(const QUuid& id) const { return m_tiles.value(id); }

    [[nodiscard]] int tileCount() const { return static_cast<int>(m_tiles.size()); }

    /// The tiles in view from top to bottom.
    [[nodiscard]] std::vector<ShelfItemView*> tilesInOrder() const;

    /// The item that keys are meant for.
    [[nodiscard]] std::optional<QUuid> currentId() const;

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void layOut();
    void measure();
    void placeTiles(bool refill);
    [[nodiscard]] ShelfItemView* newTile(const QUuid& id);
    [[nodiscard]] int tileWidth() const;
    [[nodiscard]] std::optional<std::size_t> rowForKey(int key) const;
    void setCurrentRow(std::size_t row);
    void scrollTo(std::size_t row);
    void showCurrent();

    std::vector<QUuid> m_ids;
    TileLayout m_layout;
    QHash<QUuid, ShelfItemView*> m_tiles;
    int m_measuredWidth = 0;
    /// The layout and the tiles are not those of the rows yet.
    bool m_isOutdated = false;
    std::optional<std::size_t> m_currentRow;
    bool m_usesKeys = false;
};

} // namespace nookle
