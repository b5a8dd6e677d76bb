#include "Accessibility.h"

#include "ItemInteractionView.h"
#include "ShelfItemView.h"
#include "TileList.h"

#include <QAccessibleWidget>

#include <algorithm>
#include <memory>

namespace nookle {

namespace {

/// Presents a tile as an item of a list. Its actions are the entries of its context menu.
class AccessibleTile final : public QAccessibleWidget {
public:
    explicit AccessibleTile(ShelfItemView* tile)
        : QAccessibleWidget(tile, QAccessible::ListItem)
        , m_tile(*tile)
    {
    }

    // The list, not the widgets in between.
    [[nodiscard]] QAccessibleInterface* parent() const override
    {
        return QAccessible::queryAccessibleInterface(list());
    }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }

    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        const bool isCurrent = list() && list()->currentId() && list()->tile(*list()->currentId()) == &m_tile;
        state.focusable = true;
        state.focused = isCurrent && list()->hasFocus();
        state.selectable = true;
        state.selected = list() && list()->selection().isTarget(m_tile.itemId());
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override
    {
        QStringList names{ showMenuAction() };
        for (const MenuAction& action : enabledActions())
            names.append(action.title);
        return names;
    }

    // The names are the titles of the menu, in the user's language already.
    [[nodiscard]] QString localizedActionName(const QString& name) const override
    {
        return name == showMenuAction() ? ShelfItemView::tr("Show Menu") : name;
    }

    void doAction(const QString& name) override
    {
        if (name == showMenuAction()) {
            m_tile.interaction().showMenu(m_tile.mapToGlobal(m_tile.rect().center()));
            return;
        }
        for (const MenuAction& action : enabledActions()) {
            if (action.title == name) {
                action.action();
                return;
            }
        }
    }

private:
    [[nodiscard]] TileList* list() const
    {
        QWidget* viewport = m_tile.parentWidget();
        return viewport ? qobject_cast<TileList*>(viewport->parentWidget()) : nullptr;
    }

    [[nodiscard]] std::vector<MenuAction> enabledActions() const
    {
        std::vector<MenuAction> actions;
        const auto& configuration = m_tile.interaction().configuration();
        if (!configuration || !configuration->menu)
            return actions;
        for (const auto& each : configuration->menu()) {
            if (each && each->isEnabled)
                actions.push_back(*each);
        }
        return actions;
    }

    ShelfItemView& m_tile;
};

#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)

/// Which of the tiles in view are selected, for assistive programs that select some.
class AccessibleSelection final : public QAccessibleSelectionInterface {
public:
    explicit AccessibleSelection(TileList& list)
        : m_list(list)
    {
    }

    [[nodiscard]] int selectedItemCount() const override { return static_cast<int>(selectedItems().size()); }

    [[nodiscard]] QList<QAccessibleInterface*> selectedItems() const override
    {
        QList<QAccessibleInterface*> selected;
        for (ShelfItemView* tile : m_list.tilesInOrder()) {
            if (m_list.selection().isTarget(tile->itemId()))
                selected.append(QAccessible::queryAccessibleInterface(tile));
        }
        return selected;
    }

    [[nodiscard]] bool isSelected(QAccessibleInterface* child) const override
    {
        return selectedItems().contains(child);
    }

    bool select(QAccessibleInterface* child) override { return setSelected(child, true); }
    bool unselect(QAccessibleInterface* child) override { return setSelected(child, false); }

    bool selectAll() override
    {
        m_list.selectAll();
        return true;
    }

    // Also the tile that keys are for while no tile is selected, and what is out of view.
    bool clear() override
    {
        m_list.selectNone();
        return true;
    }

private:
    bool setSelected(QAccessibleInterface* child, bool isSelected)
    {
        const auto* tile = child ? qobject_cast<ShelfItemView*>(child->object()) : nullptr;
        if (!tile)
            return false;
        m_list.setSelected(tile->itemId(), isSelected);
        return true;
    }

    TileList& m_list;
};

#endif

/// Presents the tiles in view as a list.
class AccessibleTileList final : public QAccessibleWidget {
public:
    explicit AccessibleTileList(TileList* list)
        : QAccessibleWidget(list, QAccessible::List)
        , m_list(*list)
    {
    }

#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
    [[nodiscard]] void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::SelectionInterface ? &m_selection : QAccessibleWidget::interface_cast(type);
    }
#endif

    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.multiSelectable = true;
        state.extSelectable = true;
        return state;
    }

    [[nodiscard]] int childCount() const override
    {
        return m_list.tileCount();
    }

    [[nodiscard]] QAccessibleInterface* child(int index) const override
    {
        const std::vector<ShelfItemView*> tiles = m_list.tilesInOrder();
        if (index < 0 || static_cast<std::size_t>(index) >= tiles.size())
            return nullptr;
        return QAccessible::queryAccessibleInterface(tiles[static_cast<std::size_t>(index)]);
    }

    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override
    {
        const std::vector<ShelfItemView*> tiles = m_list.tilesInOrder();
        const auto found = std::find(tiles.begin(), tiles.end(), child->object());
        return found == tiles.end() ? -1 : static_cast<int>(found - tiles.begin());
    }

    [[nodiscard]] QAccessibleInterface* focusChild() const override
    {
        const auto current = m_list.currentId();
        ShelfItemView* tile = current && m_list.hasFocus() ? m_list.tile(*current) : nullptr;
        return tile ? QAccessible::queryAccessibleInterface(tile) : nullptr;
    }

private:
    TileList& m_list;
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
    AccessibleSelection m_selection{ m_list };
#endif
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object)
{
    // The toolkit takes ownership of the returned object.
    if (auto* tile = qobject_cast<ShelfItemView*>(object))
        return std::make_unique<AccessibleTile>(tile).release();
    if (auto* list = qobject_cast<TileList*>(object))
        return std::make_unique<AccessibleTileList>(list).release();
    return nullptr;
}

} // namespace

void installAccessibility()
{
    QAccessible::installFactory(makeInterface);
}

void tellAssistivePrograms(QWidget& widget, QAccessible::Event what)
{
    QAccessibleEvent event(&widget, what);
    QAccessible::updateAccessibility(&event);
}

} // namespace nookle
