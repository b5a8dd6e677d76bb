#include "StripWindow.h"

#include <QDropEvent>
#include <QPainter>

namespace nookle {

StripWindow::StripWindow()
{
    QSurfaceFormat transparent = format();
    transparent.setAlphaBufferSize(8);
    setFormat(transparent);
}

StripWindow::~StripWindow() = default;

bool StripWindow::event(QEvent* event)
{
    switch (event->type()) {
    // An X server also says that the pointer has entered if the strip comes to the place where it saw it last.
    case QEvent::MouseMove:
        pointerCame();
        return true;
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        handleDrag(static_cast<QDropEvent&>(*event));
        return true;
    case QEvent::DragLeave:
        if (onDragLeft)
            onDragLeft();
        return true;
    default:
        return QRasterWindow::event(event);
    }
}

void StripWindow::handleDrag(QDropEvent& event)
{
    // A drag of this program has its source here.
    if (event.source() || !onDragEvent) {
        event.ignore();
        return;
    }
    onDragEvent(event, onDesktop(event.position()));
}

void StripWindow::pointerCame()
{
    if (onPointerCame)
        onPointerCame();
}

void StripWindow::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(QRect(QPoint(), size()), Qt::transparent);
}

} // namespace nookle
