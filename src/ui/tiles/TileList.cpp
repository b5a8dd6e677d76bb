#include "TileList.h"

#include "Accessibility.h"
#include "Arrival.h"
#include "ItemInteractionView.h"
#include "Motion.h"
#include "ShelfItemView.h"

#include <QKeyEvent>
#include <QResizeEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace nookle {

namespace {

inline constexpr int margin = 6;
inline constexpr int gap = 4;

[[nodiscard]] bool isShortcut(const QKeyEvent& event)
{
    return event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
}

} // namespace

TileList::TileList(MainQueue& queue, QWidget* parent)
    : QAbstractScrollArea(parent)
    , m_tiles(m_selection)
    , m_scrolling(*verticalScrollBar())
    , m_band(*this, queue)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_InputMethodEnabled);
    setInputMethodHints(Qt::ImhNoPredictiveText | Qt::ImhNoAutoUppercase);
    m_time.start();
    setAccessibleName(tr("Shelf"));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);
    m_tiles.makeTile = [this](const QUuid& id) { return newTile(id); };
    m_tiles.fillTile = [this](ShelfItemView& tile, std::size_t row) { fillTile(tile, row); };
    m_band.itemsUnder = [this](const QRect& rect) { return itemsUnder(rect); };
    m_band.onSelected = [this](const QSet<QUuid>& ids) { change([&] { m_selection.select(ids); }); };
}

int TileList::tileWidth() const
{
    return std::max(0, viewport()->width() - 2 * margin);
}

void TileList::setRows(std::vector<QUuid> ids)
{
    if (const auto row = arrivedRow(m_selection.rows(), ids))
        m_arrived = ids[*row];
    change([&] { m_selection.setRows(std::move(ids)); });
    m_isOutdated = true;
    if (isVisible() && wantsMotion())
        m_tiles.move([this] { layOut(); });
    else if (isVisible())
        layOut();
}

void TileList::layOut()
{
    measure();
    updateRange();
    const auto arrived = std::exchange(m_arrived, std::nullopt);
    if (const auto row = arrived ? m_selection.rowOf(*arrived) : std::nullopt)
        bringIntoView(*row);
    m_isOutdated = false;
    placeTiles(true);
    showSelection();
    m_band.follow();
}

void TileList::measure()
{
    m_measuredWidth = tileWidth();
    std::vector<int> heights;
    heights.reserve(m_selection.rows().size());
    for (std::size_t row = 0; row < m_selection.rows().size(); ++row)
        heights.push_back(tileHeight(row, m_measuredWidth));
    m_layout = TileLayout(heights, margin, gap);
}

void TileList::updateRange()
{
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setRange(0, std::max(0, m_layout.totalHeight() - viewport()->height()));
}

void TileList::placeTiles(bool refill)
{
    updateRange();
    m_tiles.place(m_layout, { verticalScrollBar()->value(), viewport()->height(), margin, tileWidth() }, refill);
}

ShelfItemView* TileList::newTile(const QUuid& id)
{
    ShelfItemView* tile = makeTile(viewport());
    tile->interaction().installEventFilter(this);
    tile->setFocused(m_usesKeys && hasFocus() && currentId() == id);
    tile->setSelected(m_selection.contains(id));
    return tile;
}

// A pressed tile becomes the current one, from which the arrow keys continue. With Control or Shift that waits for the
// click, because a drag of what is selected may begin.
bool TileList::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress) {
        const auto& press = static_cast<const QMouseEvent&>(*event);
        const bool awaitsClick = press.button() == Qt::LeftButton && Selection::isKept(press.modifiers());
        if (const auto row = awaitsClick ? std::nullopt : m_tiles.rowOfInteraction(watched)) {
            m_usesKeys = false;
            change([&] { m_selection.press(*row); });
        }
    }
    return QAbstractScrollArea::eventFilter(watched, event);
}

void TileList::choose(const QUuid& id, Qt::KeyboardModifiers modifiers)
{
    const std::optional<std::size_t> row = m_selection.rowOf(id);
    if (!row)
        return;
    // Also where nothing is selected any more, the frame shows where a range begins.
    m_usesKeys = true;
    change([&] { m_selection.click(*row, modifiers); });
}

void TileList::setSelected(const QUuid& id, bool isSelected)
{
    change([&] { m_selection.setSelected(id, isSelected); });
}

void TileList::selectNone()
{
    m_band.cancel();
    change([this] { m_selection.selectNone(); });
}

bool TileList::endSelection()
{
    if (m_band.cancel())
        return true;
    const bool hadSelection = !m_selection.isEmpty();
    change([this] { m_selection.clear(); });
    return hadSelection;
}

void TileList::pressBeside(const QPoint& globalPosition, Qt::KeyboardModifiers modifiers)
{
    m_band.press(globalPosition, m_selection.ids(), Selection::isKept(modifiers));
}

void TileList::releaseBeside()
{
    if (m_band.release())
        change([this] { m_selection.clear(); });
}

QSet<QUuid> TileList::itemsUnder(const QRect& band) const
{
    QSet<QUuid> ids;
    if (m_isOutdated || band.right() < margin || band.left() >= margin + tileWidth())
        return ids;
    const TileLayout::Range range = m_layout.rowsBetween(band.top(), band.bottom() + 1);
    for (std::size_t row = range.first; row < range.end; ++row)
        ids.insert(m_selection.rows()[row]);
    return ids;
}

void TileList::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        pressBeside(event->globalPosition().toPoint(), event->modifiers());
}

void TileList::mouseMoveEvent(QMouseEvent* event)
{
    m_band.move(event->globalPosition().toPoint(), event->buttons());
}

void TileList::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        releaseBeside();
}

// Accepted at the ends of the list too: the event must not go on to what lies behind.
void TileList::wheelEvent(QWheelEvent* event)
{
    event->accept();
    const WheelScroll::Step step = m_wheel.step(*event, viewport()->height());
    switch (step.kind) {
    case WheelScroll::Kind::notch:
        m_scrolling.moveBy(step.distance);
        break;
    case WheelScroll::Kind::fine:
        // A fine wheel that is turned fast may send a whole notch among its steps.
        m_scrolling.finish();
        m_scrolling.jumpBy(step.distance);
        break;
    case WheelScroll::Kind::finger:
        m_scrolling.jumpBy(step.distance);
        break;
    }
}

void TileList::keyPressEvent(QKeyEvent* event)
{
    const bool isRepeat = m_heldKey.isRepeat(*event);
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
        m_usesKeys = true;
        if (const auto row = m_selection.rowForKey(event->key(), m_tiles.all().size()))
            moveTo(*row, event->modifiers());
        return;
    case Qt::Key_Space:
        if (const auto row = m_selection.currentRow(); row && event->modifiers() & Qt::ControlModifier) {
            m_usesKeys = true;
            if (!isRepeat)
                change([&] { m_selection.click(*row, Qt::ControlModifier); });
            return;
        }
        [[fallthrough]];
    default:
        // Everything else is for the owner.
        if (isShortcut(*event) || !findName(event->text()))
            event->ignore();
    }
}

// Letters that need several keys come from here.
void TileList::inputMethodEvent(QInputMethodEvent* event)
{
    static_cast<void>(findName(event->commitString()));
    event->accept();
}

void TileList::keyReleaseEvent(QKeyEvent* event)
{
    m_heldKey.release(*event);
    // Also for the owner.
    event->ignore();
}

bool TileList::findName(const QString& typed)
{
    const auto time = static_cast<quint64>(m_time.elapsed());
    const bool isText = !typed.isEmpty() && typed.front().isPrint();
    // No name begins with a space, and the owner uses that key.
    if (!isText || (typed.front().isSpace() && !m_search.isUnderWay(time)))
        return false;
    m_usesKeys = true;
    if (const auto row = m_search.find(typed, time, m_selection.currentRow(), m_selection.rows().size(), tileName))
        moveTo(*row, {});
    return true;
}

void TileList::clearCurrent()
{
    change([this] { m_selection.clearCurrent(); });
}

void TileList::scrollToCurrent()
{
    if (const auto row = m_selection.currentRow())
        scrollTo(*row);
}

void TileList::moveTo(std::size_t row, Qt::KeyboardModifiers modifiers)
{
    scrollTo(row);
    change([&] { m_selection.moveTo(row, modifiers); });
}

void TileList::scrollTo(std::size_t row)
{
    if (!m_isOutdated)
        bringIntoView(row);
}

void TileList::bringIntoView(std::size_t row)
{
    m_scrolling.stop();
    const int top = m_layout.top(row) - margin;
    const int bottom = m_layout.top(row) + m_layout.height(row) + margin;
    const int offset = verticalScrollBar()->value();
    if (top < offset)
        verticalScrollBar()->setValue(top);
    else if (bottom > offset + viewport()->height())
        verticalScrollBar()->setValue(bottom - viewport()->height());
}

void TileList::change(const std::function<void()>& change)
{
    QSet<QUuid> before;
    for (auto each = m_tiles.all().cbegin(); each != m_tiles.all().cend(); ++each) {
        if (m_selection.isTarget(each.key()))
            before.insert(each.key());
    }
    change();
    showSelection();
    for (auto each = m_tiles.all().cbegin(); each != m_tiles.all().cend(); ++each) {
        const bool isTarget = m_selection.isTarget(each.key());
        if (isTarget == before.contains(each.key()))
            continue;
        tellAssistivePrograms(*each.value(), isTarget ? QAccessible::SelectionAdd : QAccessible::SelectionRemove);
    }
}

void TileList::showSelection()
{
    const std::optional<QUuid> current = currentId();
    for (auto each = m_tiles.all().cbegin(); each != m_tiles.all().cend(); ++each) {
        each.value()->setFocused(m_usesKeys && hasFocus() && each.key() == current);
        each.value()->setSelected(m_selection.contains(each.key()));
    }
    if (ShelfItemView* focused = hasFocus() && current ? tile(*current) : nullptr)
        tellAssistivePrograms(*focused, QAccessible::Focus);
}

void TileList::focusInEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusInEvent(event);
    const bool isTab = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    // A closed menu and a window that is active again change nothing.
    if (isTab || event->reason() == Qt::MouseFocusReason)
        m_usesKeys = isTab;
    const bool isSelected = !m_selection.isEmpty();
    if (isTab && !m_selection.currentRow() && !m_selection.rows().empty())
        change([&] { m_selection.moveTo(0, isSelected ? Qt::ControlModifier : Qt::NoModifier); });
    else
        showSelection();
}

void TileList::focusOutEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusOutEvent(event);
    showSelection();
}

void TileList::showEvent(QShowEvent* event)
{
    QAbstractScrollArea::showEvent(event);
    layOut();
}

void TileList::hideEvent(QHideEvent* event)
{
    m_scrolling.stop();
    m_tiles.finishMovement();
    m_band.release();
    change([this] { m_selection.clear(); });
    QAbstractScrollArea::hideEvent(event);
}

void TileList::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    m_tiles.finishMovement();
    if (m_isOutdated)
        return;
    if (tileWidth() != m_measuredWidth)
        measure();
    placeTiles(false);
}

void TileList::scrollContentsBy(int /*dx*/, int /*dy*/)
{
    if (m_isOutdated || m_tiles.isPlacingWithMovement())
        return;
    m_tiles.finishMovement();
    placeTiles(false);
    m_band.follow();
}

} // namespace nookle
