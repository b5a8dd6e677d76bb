#include "ShelfView.h"

#include "CarriedItem.h"
#include "ContextMenu.h"
#include "EmptyShelfView.h"
#include "FileIcon.h"
#include "IconPictureRest.h"
#include "ItemInteractionView.h"
#include "PanelBackground.h"
#include "PanelOutline.h"
#include "ScrollFade.h"
#include "ShelfHeader.h"
#include "ShelfItemView.h"
#include "ShelfStore.h"
#include "TileList.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QStackedLayout>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>
#include <iterator>
#include <utility>

namespace nookle {

namespace {

template <typename Closure, typename... Arguments> void callIfSet(const Closure& closure, Arguments... arguments)
{
    if (closure)
        closure(arguments...);
}

} // namespace

ShelfView::ShelfView(const Services& services, QWidget* parent)
    : QWidget(parent)
    , m_store(services.store)
    , m_actions(services.store, services.workspace, services.pasteboard)
    , m_selectionActions(m_actions, services.store, services.workspace, services.pasteboard, services.queue,
                         services.ask)
    , m_dragOut({ services.store, services.trash, services.references, services.transfers, services.queue }, *this)
    , m_dropHandler(services.store, services.queue, services.transfers)
    , m_dropTarget(services.readDrop, m_dropHandler)
    , m_shelfActions(services.store, services.pinning, services.pasteboard, m_dropHandler)
    , m_thumbnails(services.thumbnails)
    , m_compositing(services.compositing)
    , m_runDrag(services.runDrag)
    , m_header(new ShelfHeader(services.pinning, this))
    , m_content(new QStackedLayout)
    , m_emptyState(new EmptyShelfView)
    , m_tiles(new TileList(services.queue))
    , m_hover(*m_tiles)
    , m_outline(new PanelOutline(this))
{
    setAcceptDrops(true);
    setFocusPolicy(Qt::ClickFocus);
    setUpLayout();
    setUpTiles();
    setUpActions();
    new IconPictureRest(*this, services.queue);
    connect(&m_compositing, &Compositing::backdropChanged, this, [this] { update(); });
    connect(&m_store, &ShelfStore::itemsChanged, this, &ShelfView::showItems);
    connect(&m_store, &ShelfStore::fileURLsChanged, this, &ShelfView::showItems);
    showItems();
}

void ShelfView::setUpLayout()
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_header);
    layout->addLayout(m_content, 1);
    // Only now: a stack that belongs to no window yet shows its first widget as a window of its own.
    m_content->addWidget(m_emptyState);
    m_content->addWidget(m_tiles);

    m_fades = { new ScrollFade(*this, *m_tiles, ScrollFade::Edge::top, m_compositing),
                new ScrollFade(*this, *m_tiles, ScrollFade::Edge::bottom, m_compositing) };
    // The layout raises what it shows.
    connect(m_content, &QStackedLayout::currentChanged, this, &ShelfView::raiseOverlays);
    raiseOverlays();
}

void ShelfView::raiseOverlays()
{
    for (ScrollFade* fade : m_fades)
        fade->raise();
    m_outline->raise();
}

void ShelfView::setUpTiles()
{
    m_tiles->makeTile = [this](QWidget* viewport) {
        return new ShelfItemView(viewport, tileSizes().metrics, m_thumbnails, m_runDrag);
    };
    m_tiles->tileHeight = [this](std::size_t row, int width) {
        const ShelfItem& item = m_store.items()[static_cast<qsizetype>(row)];
        const bool isUnavailable = ShelfItemView::isUnavailable(item, m_store.fileURLs().contains(item.id));
        return tileSizes().heights.height(item, isUnavailable, width);
    };
    m_tiles->tileName = [this](std::size_t row) { return m_store.items()[static_cast<qsizetype>(row)].shownName(); };
    m_tiles->band().onDrawnChanged = m_uses.listener();
    m_tiles->fillTile = [this](ShelfItemView& tile, std::size_t row) {
        fillTile(tile, m_store.items()[static_cast<qsizetype>(row)]);
    };
}

void ShelfView::setUpActions()
{
    m_header->onTogglePin = [this] { m_shelfActions.onTogglePin(); };
    m_header->onSelectAll = [this] { m_shelfActions.onSelectAll(); };
    m_header->onDragAll = [this](QWidget& handle) { dragAll(handle); };
    m_dragOut.thumbnailOf = [this](const ShelfItem& item) { return thumbnailOf(item); };
    m_dropTarget.onHoverChanged = [this](bool isHovered) { dropHoverChanged(isHovered); };
    m_uses.onChanged = [this](bool isInUse) { callIfSet(onMenuOpenChanged, isInUse); };
    m_shelfActions.onSelectAll = [this] {
        m_tiles->setFocus();
        m_tiles->selectAll();
    };
    m_shelfActions.onTogglePin = [this] { callIfSet(onTogglePin); };
    m_shelfActions.onShowSettings = [this] { callIfSet(onShowSettings); };
    m_shelfActions.onQuit = [this] { callIfSet(onQuit); };
}

void ShelfView::fillTile(ShelfItemView& tile, const ShelfItem& item)
{
    tile.setItem(item, presentFile(item, m_store), m_store.isFolder(item), m_store.iconURL(item));
    tile.setHovered(m_hover.shows(item.id));
    tile.interaction().setConfiguration(interaction(item));
}

void ShelfView::showItems()
{
    std::vector<QUuid> ids;
    ids.reserve(static_cast<std::size_t>(m_store.items().size()));
    for (const ShelfItem& item : m_store.items())
        ids.push_back(item.id);
    const bool isEmpty = ids.empty();
    if (m_tileSizes)
        m_tileSizes->heights.trim(m_store.items().size());
    m_tiles->setRows(std::move(ids));
    m_header->setItemCount(m_store.items().size());
    // The keys of the shelf as a whole work on an empty shelf too.
    const bool hadFocus = hasFocus();
    if (isEmpty)
        setFocusProxy(nullptr);
    if (isEmpty && hadFocus)
        setFocus();
    m_content->setCurrentWidget(isEmpty ? static_cast<QWidget*>(m_emptyState) : m_tiles);
    if (!isEmpty)
        setFocusProxy(m_tiles);
}

ShelfView::TileSizes& ShelfView::tileSizes()
{
    if (!m_tileSizes)
        m_tileSizes.emplace();
    return *m_tileSizes;
}

void ShelfView::prepare()
{
    static_cast<void>(tileSizes());
    constexpr qsizetype mostInView = 20;
    for (const ShelfItem& item : m_store.items().first(std::min(m_store.items().size(), mostInView))) {
        if (const auto file = m_store.localURL(item))
            static_cast<void>(fileIcon(*file, m_store.isFolder(item)));
    }
}

ItemInteraction ShelfView::interaction(const ShelfItem& item)
{
    // A drag may outlive its tile and this view.
    const QPointer<ShelfView> self(this);
    ItemInteraction interaction;
    interaction.toolTip = ShelfItemActions::toolTip(item, m_store.localURL(item));
    interaction.distinctToolTip = [this, item] { return m_actions.distinctToolTip(item); };
    interaction.dragItem = [this, item] { return m_dragOut.begin(itemsTakenWith(item)); };
    interaction.menu = [this, item] { return m_selectionActions.menuActions(itemsTakenWith(item)); };
    interaction.onMenuOpenChanged = m_uses.listener();
    interaction.onHover = [this, id = item.id](bool isInside) { m_hover.change(id, isInside); };
    interaction.onClick = [this, item] { m_actions.open(item); };
    interaction.onChoose = [this, id = item.id](Qt::KeyboardModifiers modifiers) { m_tiles->choose(id, modifiers); };
    // With these keys a drag begins by selecting its tile, as a click does whose hand has slipped.
    interaction.onChooseForDrag = [this, id = item.id](Qt::KeyboardModifiers modifiers) {
        if (!m_tiles->selection().contains(id))
            m_tiles->choose(id, modifiers);
    };
    interaction.onDragBegan = [self] {
        if (self)
            self->dragBegan();
    };
    interaction.onDragEnded = [self](DragOperation operation) {
        if (self)
            self->dragEnded(operation);
    };
    return interaction;
}

QPixmap ShelfView::thumbnailOf(const ShelfItem& item) const
{
    const ShelfItemView* tile = m_tiles->tile(item.id);
    return tile ? tile->thumbnail() : QPixmap();
}

QList<ShelfItem> ShelfView::itemsTakenWith(const ShelfItem& pressed) const
{
    const std::vector<QUuid> ids = m_tiles->selection().takenWith(pressed.id);
    return ids.size() == 1 ? QList<ShelfItem>{ pressed } : itemsIn(ids);
}

void ShelfView::dragAll(QWidget& handle)
{
    std::optional<DragItem> item = m_dragOut.begin(m_store.items());
    if (!item)
        return;
    // The drag may outlive this view.
    const QPointer<ShelfView> self(this);
    const DragRunner runDrag = m_runDrag;
    dragBegan();
    const DragOperation operation = runDrag(handle, std::move(*item));
    if (self)
        self->dragEnded(operation);
}

void ShelfView::dragBegan()
{
    m_dropTarget.setDraggingOut(true);
    callIfSet(onDragOutBegan);
}

void ShelfView::dragEnded(DragOperation operation)
{
    m_dropTarget.setDraggingOut(false);
    m_hover.clear();
    m_dragOut.end(operation);
    callIfSet(onDragOutEnded);
}

void ShelfView::dropHoverChanged(bool isDropTarget)
{
    m_outline->setDropTarget(isDropTarget);
    m_hover.setSuspended(isDropTarget);
    callIfSet(onDropTargetChanged, isDropTarget);
}

void ShelfView::dragEnterEvent(QDragEnterEvent* event)
{
    m_dropTarget.enter(*event);
}

void ShelfView::dragMoveEvent(QDragMoveEvent* event)
{
    m_dropTarget.move(*event);
}

void ShelfView::dragLeaveEvent(QDragLeaveEvent* /*event*/)
{
    // The pointer has left together with the drag, and tiles get no leave event for that.
    m_hover.clear();
    m_dropTarget.leave();
}

void ShelfView::dropEvent(QDropEvent* event)
{
    m_dropTarget.drop(*event);
}

// What no other part of the panel takes begins beside the tiles.
void ShelfView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_tiles->pressBeside(event->globalPosition().toPoint(), event->modifiers());
}

void ShelfView::mouseMoveEvent(QMouseEvent* event)
{
    m_tiles->band().move(event->globalPosition().toPoint(), event->buttons());
}

void ShelfView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_tiles->releaseBeside();
}

// What the list does not use must not reach anything behind the panel.
void ShelfView::wheelEvent(QWheelEvent* event)
{
    event->accept();
}

// Colours are read at each painting, but sizes are cached.
bool ShelfView::event(QEvent* event)
{
    if (event->type() == QEvent::ApplicationFontChange && m_tileSizes) {
        m_tileSizes->metrics = TileMetrics();
        m_tileSizes->heights.clear();
        showItems();
    }
    return QWidget::event(event);
}

QList<ShelfItem> ShelfView::itemsIn(const std::vector<QUuid>& ids) const
{
    const QSet<QUuid> wanted(ids.begin(), ids.end());
    QList<ShelfItem> items;
    std::copy_if(m_store.items().begin(), m_store.items().end(), std::back_inserter(items),
                 [&](const ShelfItem& item) { return wanted.contains(item.id); });
    return items;
}

QList<ShelfItem> ShelfView::targets() const
{
    return m_tiles->hasFocus() ? itemsIn(m_tiles->selection().targets()) : QList<ShelfItem>();
}

void ShelfView::keyPressEvent(QKeyEvent* event)
{
    // One press does a thing once, however long it lasts.
    if (m_heldKey.isRepeat(*event))
        return;
    if (event->key() == Qt::Key_Escape) {
        if (!m_tiles->endSelection())
            callIfSet(onHide);
        return;
    }
    if (!m_shelfActions.handleKey(*event) && !m_selectionActions.handleKey(*event, targets()))
        QWidget::keyPressEvent(event);
}

void ShelfView::keyReleaseEvent(QKeyEvent* event)
{
    m_heldKey.release(*event);
    QWidget::keyReleaseEvent(event);
}

// For the mouse, a tile opens its menu itself. A rubber band ends: the menu takes the release of its button.
void ShelfView::contextMenuEvent(QContextMenuEvent* event)
{
    m_tiles->band().cancel();
    const bool isKey = event->reason() == QContextMenuEvent::Keyboard;
    const QList<ShelfItem> items = isKey ? targets() : QList<ShelfItem>();
    if (items.isEmpty()) {
        openContextMenu(makeMenu(), isKey ? mapToGlobal(QPoint()) : event->globalPos(), m_uses.listener());
        return;
    }
    m_tiles->scrollToCurrent();
    const auto current = m_tiles->currentId();
    const QWidget* place = current ? m_tiles->tile(*current) : nullptr;
    if (!place)
        place = m_tiles;
    openContextMenu(makeContextMenu(m_selectionActions.menuActions(items)), place->mapToGlobal(place->rect().center()),
                    m_uses.listener());
}

std::unique_ptr<QMenu> ShelfView::makeMenu()
{
    return makeContextMenu(m_shelfActions.menuActions());
}

void ShelfView::introduce()
{
    m_emptyState->showHint(tr("Drag something to the right edge of the screen and the shelf slides in."));
}

void ShelfView::beginKeys()
{
    m_tiles->clearCurrent();
    setFocus();
}

void ShelfView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintPanelBackground(painter, rect(), palette(), m_compositing.backdrop());
}

void ShelfView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_outline->setGeometry(rect());
}

} // namespace nookle
