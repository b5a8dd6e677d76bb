#include "EdgeStrips.h"

#include "EdgeInputMonitor.h"
#include "SeenPointer.h"

#include <QDropEvent>
#include <QGuiApplication>
#include <QScreen>

#include <iterator>
#include <utility>

namespace nookle {

EdgeStrips::EdgeStrips(EdgeInputMonitor& input, SeenPointer& pointer, ForeignDrags* drags)
    : m_input(input)
    , m_pointer(pointer)
    , m_drags(drags)
{
    m_input.onWatchedChanged = [this] { update(); };
    if (m_drags)
        m_drags->onChanged = [this] { update(); };
}

EdgeStrips::~EdgeStrips()
{
    m_input.onWatchedChanged = nullptr;
    if (m_drags)
        m_drags->onChanged = nullptr;
}

void EdgeStrips::displaysChanged()
{
    removeStrips();
    update();
}

std::optional<EdgeStrip::Level> EdgeStrips::wanted() const
{
    if (!m_input.isWatched() || (m_isToldOfDrags && !m_drags->isUnderWay()))
        return std::nullopt;
    return m_isToldOfDrags ? EdgeStrip::Level::aboveAll : EdgeStrip::Level::belowFullScreen;
}

// What tells of drags may come and go, too.
void EdgeStrips::update()
{
    m_isToldOfDrags = m_drags && m_drags->watch();
    const auto level = wanted();
    if (level == m_level)
        return;
    removeStrips();
    if (level)
        makeStrips(*level);
}

// This may be the work of one of the strips, which must not be destroyed within its own event.
void EdgeStrips::removeStrips()
{
    m_level.reset();
    std::move(m_strips.begin(), m_strips.end(), std::back_inserter(m_ended));
    m_strips.clear();
    dragHasLeft();
    QMetaObject::invokeMethod(
        &m_context, [this] { m_ended.clear(); }, Qt::QueuedConnection);
    if (onDragEnded)
        onDragEnded();
}

void EdgeStrips::makeStrips(EdgeStrip::Level level)
{
    m_level = level;
    for (QScreen* screen : QGuiApplication::screens()) {
        // The toolkit has a screen of no size while there is no display.
        if (screen->geometry().isEmpty())
            continue;
        auto strip = std::make_unique<EdgeStrip>(*screen, level);
        strip->onDragEvent = [this, &strip = *strip](QDropEvent& event, const QPointF& position) {
            handleDrag(strip, event, position);
        };
        strip->onDragLeft = [this] { dragHasLeft(); };
        strip->onPointerCame = [this] { dragHasEnded(); };
        m_strips.push_back(std::move(strip));
    }
}

// KWin tells what may be done with the drag of an X11 program only from the second window on that it comes over. That
// is the panel, which lies below a strip if it was there before.
void EdgeStrips::handleDrag(EdgeStrip& strip, QDropEvent& event, const QPointF& position)
{
    m_pointer.drag(position);
    m_hasDrag = event.type() != QEvent::Drop;
    if (event.type() == QEvent::DragEnter) {
        if (m_drags && !m_isToldOfDrags)
            m_drags->dragCame();
        m_input.dragHasReachedEdge();
    }
    if (onDragEvent)
        onDragEvent(event, position);
    else
        event.ignore();
    const bool isOfX11Program = m_drags && m_drags->isOfX11Program();
    if (isOfX11Program && event.possibleActions() == Qt::IgnoreAction && isPanelShown && isPanelShown())
        strip.stepAside();
}

// Nobody else tells so of a strip that is removed under a drag.
void EdgeStrips::dragHasLeft()
{
    if (!std::exchange(m_hasDrag, false))
        return;
    m_pointer.leave();
    if (onDragLeft)
        onDragLeft();
}

// Where nothing told of drags so far, something may do so by now.
void EdgeStrips::dragHasEnded()
{
    if (onDragEnded)
        onDragEnded();
    if (!m_drags)
        return;
    m_drags->end();
    update();
}

} // namespace nookle
