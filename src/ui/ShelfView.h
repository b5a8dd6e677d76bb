#pragma once

#include "Compositing.h"
#include "DragOut.h"
#include "DragSession.h"
#include "DropHandler.h"
#include "DropTarget.h"
#include "HeldKey.h"
#include "ItemInteraction.h"
#include "ShelfActions.h"
#include "SelectionActions.h"
#include "ShelfItemActions.h"
#include "TileHeights.h"
#include "TileHover.h"
#include "TileMetrics.h"
#include "UseCount.h"

#include <QUuid>
#include <QWidget>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QMenu;
class QStackedLayout;

namespace nookle {

class EmptyShelfView;
class MainQueue;
class PanelOutline;
class PanelPinning;
class ScrollFade;
class ShelfHeader;
class ShelfItemView;
class ThumbnailGenerator;
class TileList;

/// The panel's content: the header with the pin button, and the tiles of the shelf or the hint that it is empty. Shows
/// the items of the store, and changes them only through the store. All services must outlive it.
class ShelfView final : public QWidget {
    Q_OBJECT

public:
    /// The objects that the view depends on.
    struct Services {
        ShelfStore& store;
        PanelPinning& pinning;
        Workspace& workspace;
        Pasteboard& pasteboard;
        Trash& trash;
        FileReferences& references;
        FileTransfers& transfers;
        ThumbnailGenerator& thumbnails;
        Compositing& compositing;
        MainQueue& queue;
        DropReader readDrop;
        DragRunner runDrag = runDragSession;
        Ask ask = askInWindow;
    };

    explicit ShelfView(const Services& services, QWidget* parent = nullptr);

    /// Set by the owner.
    std::function<void()> onTogglePin;
    /// Called when a drag that the view accepts has entered it (true) or left it.
    std::function<void(bool isDropTarget)> onDropTargetChanged;
    std::function<void()> onDragOutBegan;
    std::function<void()> onDragOutEnded;
    /// Called when the user chooses these entries in the panel's own menu.
    std::function<void()> onShowSettings;
    std::function<void()> onQuit;
    /// Called when the first context menu has opened or a rubber band has begun (true), and when all of them are gone.
    std::function<void(bool isOpen)> onMenuOpenChanged;
    /// Called when the user wants to hide the shelf.
    std::function<void()> onHide;

    /// Loads the desktop's fonts and icons in advance, which takes a while. Optional: without it the first showing
    /// loads them.
    void prepare();

    /// From now on until it is hidden, an empty shelf also says how it is opened.
    void introduce();

    /// Prepares for keys, which begin with no current tile. Call it when the panel is about to get the focus.
    void beginKeys();

    /// Makes the panel's own menu with its present entries.
    [[nodiscard]] std::unique_ptr<QMenu> makeMenu();

    /// Call this before the program ends. Copies back each dragged image whose file a receiver has moved away.
    void saveDraggedImages() { m_dragOut.saveImages(); }

    /// The item under the pointer, if any.
    [[nodiscard]] std::optional<QUuid> hoveredID() const { return m_hover.id(); }
    [[nodiscard]] bool isDropTarget() const { return m_dropTarget.isHovered(); }

    /// The items that a drag takes when it begins on the tile of `pressed`: all selected ones in the order of the shelf
    /// if `pressed` is one of them, else `pressed` alone.
    [[nodiscard]] QList<ShelfItem> itemsTakenWith(const ShelfItem& pressed) const;

    /// The actions of the item's tile on mouse events.
    [[nodiscard]] ItemInteraction interaction(const ShelfItem& item);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    struct TileSizes {
        TileMetrics metrics;
        TileHeights heights{ metrics };
    };

    void setUpLayout();
    void raiseOverlays();
    void setUpTiles();
    void setUpActions();
    void fillTile(ShelfItemView& tile, const ShelfItem& item);
    void showItems();
    /// Makes the sizes at the first call, because loading the desktop's fonts takes a while.
    [[nodiscard]] TileSizes& tileSizes();
    /// The picture in the item's tile; null if the tile is not in view.
    [[nodiscard]] QPixmap thumbnailOf(const ShelfItem& item) const;
    void dropHoverChanged(bool isDropTarget);
    /// The items of the shelf in `ids`, in the order of the shelf.
    [[nodiscard]] QList<ShelfItem> itemsIn(const std::vector<QUuid>& ids) const;
    /// The items that keys are for.
    [[nodiscard]] QList<ShelfItem> targets() const;
    void dragAll(QWidget& handle);
    void dragBegan();
    void dragEnded(DragOperation operation);

    ShelfStore& m_store;
    ShelfItemActions m_actions;
    SelectionActions m_selectionActions;
    DragOut m_dragOut;
    DropHandler m_dropHandler;
    DropTarget m_dropTarget;
    ShelfActions m_shelfActions;
    ThumbnailGenerator& m_thumbnails;
    Compositing& m_compositing;
    DragRunner m_runDrag;
    std::optional<TileSizes> m_tileSizes;
    UseCount m_uses;
    HeldKey m_heldKey;
    ShelfHeader* m_header;
    QStackedLayout* m_content;
    EmptyShelfView* m_emptyState;
    TileList* m_tiles;
    TileHover m_hover;
    PanelOutline* m_outline;
    std::array<ScrollFade*, 2> m_fades{};
};

} // namespace nookle
