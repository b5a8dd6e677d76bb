#pragma once

#include "Compositing.h"
#include "DragOutWatch.h"
#include "DragSession.h"
#include "DropHandler.h"
#include "DropPayload.h"
#include "ShelfItemActions.h"
#include "TileHeights.h"
#include "TileMetrics.h"

#include <QUuid>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

class QMimeData;
class QStackedLayout;

namespace nookle {

class EmptyShelfView;
class MainQueue;
class PanelPinning;
class ShelfItemView;
class Thumbnails;
class TileList;

/// Makes a drop readable: what the toolkit hands over, or what the display server offers.
using DropReader = std::function<std::unique_ptr<DropPayload>(const QMimeData&)>;

/// The panel's content: the header with its pin, and the tiles of the shelf or the hint that it is empty. Shows what
/// the store holds and changes it only through the store. Everything that it is given must outlive it.
class ShelfView final : public QWidget {
    Q_OBJECT

public:
    /// What the view works with.
    struct Services {
        ShelfStore& store;
        PanelPinning& pinning;
        Workspace& workspace;
        Pasteboard& pasteboard;
        Trash& trash;
        FileReferences& references;
        FileTransfers& transfers;
        Thumbnails& thumbnails;
        Compositing& compositing;
        MainQueue& queue;
        DropReader readDrop;
        DragRunner runDrag = runDragSession;
    };

    explicit ShelfView(const Services& services, QWidget* parent = nullptr);

    /// Set by the owner.
    std::function<void()> onTogglePin;
    /// A drop that the view accepts began (true) or ceased to hover over it.
    std::function<void(bool isDropTarget)> onDropTargetChanged;
    std::function<void()> onDragOutBegan;
    std::function<void()> onDragOutEnded;
    /// The first context menu has opened (true) or the last one has closed.
    std::function<void(bool isOpen)> onMenuOpenChanged;
    /// The user wants the shelf out of the way.
    std::function<void()> onHide;

    /// Loads what the first showing needs and what takes a while: the desktop's fonts and icons. May be left out.
    void prepare();

    /// The program is about to end: what a receiver has moved of the images that were dragged out is copied back.
    void saveDraggedImages() { m_dragOutWatch.saveImages(); }

    /// The item under the pointer, if any.
    [[nodiscard]] std::optional<QUuid> hoveredID() const { return m_hoveredID; }
    [[nodiscard]] bool isDropTarget() const { return m_isDropTarget; }

    /// What the tile of that item does with the mouse.
    [[nodiscard]] ItemInteraction interaction(const ShelfItem& item);

protected:
    void paintEvent(QPaintEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    struct TileSizes {
        TileMetrics metrics;
        TileHeights heights{ metrics };
    };

    void setUpLayout(PanelPinning& pinning);
    void setUpTiles();
    void fillTile(ShelfItemView& tile, const ShelfItem& item);
    [[nodiscard]] std::optional<QUrl> presentFile(const ShelfItem& item) const;
    void showItems();
    /// Made when they are first needed: the desktop's fonts take a while to load.
    [[nodiscard]] TileSizes& tileSizes();
    /// Null unless it is on screen.
    [[nodiscard]] QPixmap thumbnailOf(const ShelfItem& item) const;
    [[nodiscard]] bool canTake(const QDropEvent& event) const;
    void setDropTarget(bool isDropTarget);
    [[nodiscard]] std::optional<ShelfItem> currentItem() const;
    [[nodiscard]] bool handleKey(const QKeyEvent& event, const ShelfItem& item);
    void setHovered(const std::optional<QUuid>& id);
    void itemHovered(const QUuid& id, bool isInside);
    void menuOpenChanged(bool isOpen);
    [[nodiscard]] bool showsHover(const QUuid& id) const { return !m_isDropTarget && m_hoveredID == id; }
    void updateHover(const std::optional<QUuid>& id);
    [[nodiscard]] bool isOnShelf(const QUuid& id) const;
    [[nodiscard]] std::optional<DragItem> beginDrag(const ShelfItem& item);
    void dragBegan();
    void dragEnded(const ShelfItem& item, DragOperation operation);

    ShelfStore& m_store;
    ShelfItemActions m_actions;
    DragOutWatch m_dragOutWatch;
    DropHandler m_dropHandler;
    Thumbnails& m_thumbnails;
    Compositing& m_compositing;
    DropReader m_readDrop;
    DragRunner m_runDrag;
    std::optional<TileSizes> m_tileSizes;
    QStackedLayout* m_content;
    EmptyShelfView* m_emptyState;
    TileList* m_tiles;
    bool m_isDropTarget = false;
    /// What is dragged is an item of the shelf, which it does not take back.
    bool m_isDraggingOut = false;
    std::optional<QUuid> m_hoveredID;
    int m_openMenus = 0;
};

} // namespace nookle
