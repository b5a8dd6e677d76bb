#include "DragAllButton.h"

#include <QMouseEvent>

#include <cmath>

namespace nookle {

namespace {

/// As for the tiles.
inline constexpr double dragDistance = 3;

} // namespace

DragAllButton::DragAllButton(QWidget* parent)
    : HeaderButton(parent)
{
    setName(tr("Drag All"));
    setAccessibleDescription(tr("Selects all items. Drag it to take all of them along."));
}

void DragAllButton::mousePressEvent(QMouseEvent* event)
{
    HeaderButton::mousePressEvent(event);
    if (event->button() == Qt::LeftButton)
        m_mouseDownLocation = event->position();
}

void DragAllButton::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_mouseDownLocation)
        return;
    const QPointF moved = event->position() - *m_mouseDownLocation;
    if (std::hypot(moved.x(), moved.y()) <= dragDistance)
        return;
    m_mouseDownLocation.reset();
    // The release that ends the drag does not come here.
    setDown(false);
    onDrag();
}

void DragAllButton::mouseReleaseEvent(QMouseEvent* event)
{
    m_mouseDownLocation.reset();
    HeaderButton::mouseReleaseEvent(event);
}

} // namespace nookle
