#include "RubberBand.h"

#include "Colors.h"
#include "MainQueue.h"

#include <QAbstractScrollArea>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <utility>

namespace nookle {

namespace {

inline constexpr double drawDistance = 3;
inline constexpr float fillOpacity = 0.2F;

/// The panel ends where the screen ends, so the pointer cannot leave the list there.
inline constexpr int scrollZone = 24;
inline constexpr double scrollInterval = 1.0 / 60;
inline constexpr int fastestStep = 16;

} // namespace

RubberBand::RubberBand(QAbstractScrollArea& list, MainQueue& queue)
    : QWidget(list.viewport())
    , m_list(list)
    , m_queue(queue)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

RubberBand::~RubberBand() = default;

void RubberBand::press(const QPoint& position)
{
    end();
    m_position = position;
    m_start = clamped(position) + QPoint(0, m_list.verticalScrollBar()->value());
    m_mayScroll = clamped(position) == position;
}

QPoint RubberBand::clamped(const QPoint& position) const
{
    return { position.x(), std::clamp(position.y(), 0, std::max(0, m_list.viewport()->height() - 1)) };
}

void RubberBand::move(const QPoint& position)
{
    if (!m_start)
        return;
    const QPoint moved = position - m_position;
    if (!m_isDrawn && std::hypot(moved.x(), moved.y()) <= drawDistance)
        return;
    // Rows that are scrolled away would lie there, but the user sees the header.
    if (!m_isDrawn && !m_mayScroll && clamped(position) != position)
        return;
    m_position = position;
    if (!std::exchange(m_isDrawn, true)) {
        show();
        onDrawnChanged(true);
    }
    follow();
    scrollNearEnds();
}

bool RubberBand::end()
{
    m_start.reset();
    m_scrolling.reset();
    if (!std::exchange(m_isDrawn, false))
        return false;
    hide();
    onDrawnChanged(false);
    return true;
}

void RubberBand::follow()
{
    if (!m_isDrawn)
        return;
    const QPoint offset(0, m_list.verticalScrollBar()->value());
    const QPoint corner = clamped(m_position) + offset;
    const QRect rect(QPoint(std::min(corner.x(), m_start->x()), std::min(corner.y(), m_start->y())),
                     QPoint(std::max(corner.x(), m_start->x()), std::max(corner.y(), m_start->y())));
    setGeometry(rect.translated(-offset));
    raise();
    onChanged(rect);
}

int RubberBand::scrollStep() const
{
    const int above = scrollZone - m_position.y();
    const int below = m_position.y() - (m_list.viewport()->height() - scrollZone);
    if (above > 0)
        return -std::clamp(above / 2, 1, fastestStep);
    return below > 0 ? std::clamp(below / 2, 1, fastestStep) : 0;
}

void RubberBand::scrollNearEnds()
{
    const bool isBetweenEnds = scrollStep() == 0;
    m_mayScroll = m_mayScroll || isBetweenEnds;
    if (isBetweenEnds)
        m_scrolling.reset();
    else if (m_mayScroll && !m_scrolling)
        m_scrolling = m_queue.every(scrollInterval, [this] {
            QScrollBar& bar = *m_list.verticalScrollBar();
            bar.setValue(bar.value() + scrollStep());
        });
}

void RubberBand::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    QColor fill = accentColor(palette());
    fill.setAlphaF(fillOpacity);
    painter.fillRect(rect(), fill);
    painter.setPen(accentColor(palette()));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace nookle
