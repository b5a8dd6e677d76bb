#pragma once

#include "BandSelection.h"
#include "HeldKey.h"
#include "NameSearch.h"
#include "ScrollMotion.h"
#include "Selection.h"
#include "TileLayout.h"
#include "VisibleTiles.h"
#include "WheelScroll.h"

#include <QAbstractScrollArea>
#include <QElapsedTimer>
#include <QUuid>

#include <functional>
#include <optional>
#include <vector>

namespace nookle {

class MainQueue;
class ShelfItemView;

/// A scrolling column of tiles. Only the tiles in view exist as widgets. One row may be the current one:
/// it is chosen by a key, by Tab into the list or by a press of its tile. The arrow keys change the current row, and
/// its tile has a frame while the keyboard is used. Several tiles may be selected, until the list is hidden: with
/// Control and Shift, or by a rubber band that begins beside the tiles.
class TileList final : public QAbstractScrollArea {
    Q_OBJECT

public:
    /// `queue` must outlive the list.
    explicit TileList(MainQueue& queue, QWidget* parent = nullptr);

    /// Makes a tile as a child of `parent`. Called when a row comes into view.
    std::function<ShelfItemView*(QWidget* parent)> makeTile;
    /// Fills the tile of a row. Called when the row comes into view, after every change of the rows, and when the list
    /// is shown.
    std::function<void(ShelfItemView& tile, std::size_t row)> fillTile;
    /// Returns the height of a row's tile for the given width.
    std::function<int(std::size_t row, int width)> tileHeight;

    /// Returns the name of a row, which is searched for what is typed.
    std::function<QString(std::size_t row)> tileName;

    /// Replaces the rows; each is identified by the id of its item. A tile whose id stays is kept. If the current row
    /// is gone, the row that takes its place becomes the current one. Tiles come, go and change their places by a short
    /// movement where the desktop wants that. The topmost row that has come is scrolled into view. While the list is
    /// hidden, all of that waits for the next showing.
    void setRows(std::vector<QUuid> ids);

    /// The tile of the item `id`; null when it is not in view.
    [[nodiscard]] ShelfItemView* tile(const QUuid& id) const { return m_tiles.tile(id); }

    [[nodiscard]] int tileCount() const { return static_cast<int>(m_tiles.all().size()); }

    /// The tiles in view from top to bottom.
    [[nodiscard]] std::vector<ShelfItemView*> tilesInOrder() const { return m_tiles.inOrder(); }

    /// True while the list moves by itself after a notch of the wheel.
    [[nodiscard]] bool isScrolling() const { return m_scrolling.isMoving(); }

    /// True while tiles come, go or change their places.
    [[nodiscard]] bool isRearranging() const { return m_tiles.isMoving(); }

    /// Which rows are selected, and which one is the current row.
    [[nodiscard]] const Selection& selection() const { return m_selection; }

    /// The item in the current row.
    [[nodiscard]] std::optional<QUuid> currentId() const { return m_selection.currentId(); }

    /// The tile of `id` was clicked with Control or Shift.
    void choose(const QUuid& id, Qt::KeyboardModifiers modifiers);

    /// Takes all items out of the selection, wherever they are in the list, and ends a rubber band.
    void selectNone();

    void selectAll()
    {
        change([this] { m_selection.selectAll(); });
    }

    /// Selects an item, or takes it out of the selection. The others stay as they are.
    void setSelected(const QUuid& id, bool isSelected);

    /// Ends the rubber band, or else the selection. Returns false if there was neither.
    bool endSelection();

    /// The rubber band. Tell it of what the mouse does outside of the list.
    [[nodiscard]] BandSelection& band() { return m_band; }

    // What the left button of the mouse does beside the tiles, also outside of the list. Positions are those of the
    // screen.

    void pressBeside(const QPoint& globalPosition, Qt::KeyboardModifiers modifiers);
    void releaseBeside();

    /// From now on no row is the current one, until a key or the mouse chooses one.
    void clearCurrent();

    /// Scrolls the current row into view.
    void scrollToCurrent();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void layOut();
    void measure();
    void updateRange();
    void placeTiles(bool refill);
    [[nodiscard]] ShelfItemView* newTile(const QUuid& id);
    [[nodiscard]] int tileWidth() const;
    /// Goes to the next row whose name begins with what was typed. Returns false if it is not meant for that.
    [[nodiscard]] bool findName(const QString& typed);
    void moveTo(std::size_t row, Qt::KeyboardModifiers modifiers);
    void scrollTo(std::size_t row);
    void bringIntoView(std::size_t row);
    /// Changes the selection, shows it, and tells assistive programs.
    void change(const std::function<void()>& change);
    void showSelection();
    [[nodiscard]] QSet<QUuid> itemsUnder(const QRect& band) const;

    Selection m_selection;
    TileLayout m_layout;
    VisibleTiles m_tiles;
    ScrollMotion m_scrolling;
    WheelScroll m_wheel;
    int m_measuredWidth = 0;
    /// True while the layout and the tiles do not match the rows yet.
    bool m_isOutdated = false;
    /// What has come since the tiles were laid out last, which the user wants to see.
    std::optional<QUuid> m_arrived;
    bool m_usesKeys = false;
    NameSearch m_search;
    /// Since the list was made. Input methods do not tell when something was typed.
    QElapsedTimer m_time;
    HeldKey m_heldKey;
    BandSelection m_band;
};

} // namespace nookle
