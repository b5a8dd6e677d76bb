#include "BandSelection.h"

#include "RubberBand.h"

#include <QAbstractScrollArea>

#include <utility>

namespace nookle {

BandSelection::BandSelection(QAbstractScrollArea& list, MainQueue& queue)
    : m_list(list)
    , m_band(new RubberBand(list, queue))
{
    m_band->onChanged = [this](const QRect& rect) {
        onSelected(m_adds ? m_selectedBefore + itemsUnder(rect) : itemsUnder(rect));
    };
    m_band->onDrawnChanged = [this](bool isDrawn) { onDrawnChanged(isDrawn); };
}

QPoint BandSelection::inViewport(const QPoint& globalPosition) const
{
    return m_list.viewport()->mapFromGlobal(globalPosition);
}

void BandSelection::press(const QPoint& globalPosition, const QSet<QUuid>& selected, bool adds)
{
    m_selectedBefore = selected;
    m_adds = adds;
    m_isPressed = true;
    m_band->press(inViewport(globalPosition));
}

void BandSelection::move(const QPoint& globalPosition, Qt::MouseButtons buttons)
{
    if (buttons & Qt::LeftButton)
        m_band->move(inViewport(globalPosition));
    else
        release();
}

bool BandSelection::release()
{
    const bool wasDrawn = m_band->end();
    return std::exchange(m_isPressed, false) && !wasDrawn && !m_adds;
}

bool BandSelection::cancel()
{
    if (!m_band->end())
        return false;
    // The release that follows is no click.
    m_isPressed = false;
    onSelected(m_selectedBefore);
    return true;
}

void BandSelection::follow()
{
    m_band->follow();
}

} // namespace nookle
