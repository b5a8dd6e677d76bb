#include "TileList.h"

#include "ShelfItemView.h"

#include <QResizeEvent>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace nookle {

namespace {

inline constexpr int margin = 6;
inline constexpr int gap = 4;
inline constexpr int scrollStep = 20;

} // namespace

TileList::TileList(QWidget* parent)
    : QAbstractScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);
    verticalScrollBar()->setSingleStep(scrollStep);
}

int TileList::tileWidth() const
{
    return std::max(0, viewport()->width() - 2 * margin);
}

void TileList::setRows(std::vector<QUuid> ids)
{
    m_ids = std::move(ids);
    measure();
    placeTiles(true);
}

void TileList::measure()
{
    m_measuredWidth = tileWidth();
    std::vector<int> heights;
    heights.reserve(m_ids.size());
    for (std::size_t row = 0; row < m_ids.size(); ++row)
        heights.push_back(tileHeight(row, m_measuredWidth));
    m_layout = TileLayout(heights, margin, gap);
}

void TileList::placeTiles(bool refill)
{
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setRange(0, std::max(0, m_layout.totalHeight() - viewport()->height()));
    const int offset = verticalScrollBar()->value();
    const TileLayout::Range visible = m_layout.rowsBetween(offset, offset + viewport()->height());

    QHash<QUuid, ShelfItemView*> unused = std::exchange(m_tiles, {});
    for (std::size_t row = visible.first; row < visible.end; ++row) {
        ShelfItemView* tile = unused.take(m_ids[row]);
        const bool isNew = tile == nullptr;
        if (isNew)
            tile = makeTile(viewport());
        tile->setGeometry(margin, m_layout.top(row) - offset, tileWidth(), m_layout.height(row));
        if (isNew || refill)
            fillTile(*tile, row);
        m_tiles.insert(m_ids[row], tile);
        tile->show();
    }
    // A tile may be in the middle of an event of its own: it goes once that is over.
    for (ShelfItemView* tile : std::as_const(unused)) {
        tile->hide();
        tile->deleteLater();
    }
}

void TileList::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    if (tileWidth() != m_measuredWidth)
        measure();
    placeTiles(false);
}

void TileList::scrollContentsBy(int /*dx*/, int /*dy*/)
{
    placeTiles(false);
}

} // namespace nookle
