#include "IconPictureRest.h"

#include "MainQueue.h"

#include <QEvent>
#include <QPixmapCache>
#include <QWidget>

namespace nookle {

IconPictureRest::IconPictureRest(QWidget& shown, MainQueue& queue)
    : QObject(&shown)
    , m_queue(queue)
{
    shown.installEventFilter(this);
}

IconPictureRest::~IconPictureRest() = default;

bool IconPictureRest::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show)
        m_forgetting.reset();
    else if (event->type() == QEvent::Hide)
        m_forgetting = m_queue.after(timeToKeep, &QPixmapCache::clear);
    return QObject::eventFilter(watched, event);
}

} // namespace nookle
