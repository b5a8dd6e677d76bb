#include "PanelOutline.h"

#include "PanelBackground.h"

#include <QPainter>

#include <utility>

namespace nookle {

PanelOutline::PanelOutline(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void PanelOutline::setDropTarget(bool isDropTarget)
{
    if (std::exchange(m_isDropTarget, isDropTarget) != isDropTarget)
        update();
}

void PanelOutline::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_isDropTarget)
        paintDropTarget(painter, rect(), palette());
    else
        paintPanelOutline(painter, rect(), palette());
}

} // namespace nookle
