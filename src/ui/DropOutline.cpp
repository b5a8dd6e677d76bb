#include "DropOutline.h"

#include "PanelBackground.h"

#include <QPainter>

namespace nookle {

DropOutline::DropOutline(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void DropOutline::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintDropTarget(painter, rect(), palette());
}

} // namespace nookle
