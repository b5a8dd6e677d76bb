#include "DragEdgeMonitor.h"

#include "Displays.h"
#include "InputMonitor.h"
#include "Pointer.h"

#include <QtMath>

#include <algorithm>
#include <cmath>
#include <utility>

namespace nookle {

namespace {

inline constexpr double edgeZoneWidth = 3;

[[nodiscard]] bool isAtRightEdge(const std::vector<QRectF>& frames, const QPointF& position)
{
    const auto display = frameAt(frames, position);
    return display && position.x() >= display->right() - edgeZoneWidth;
}

/// Whether the straight line between two points touches an edge zone. The points that are tested are closer together
/// than a zone is wide.
[[nodiscard]] bool touchesRightEdge(const std::vector<QRectF>& frames, const QPointF& from, const QPointF& to)
{
    const QPointF way = to - from;
    const int steps = std::max(1, qCeil(std::hypot(way.x(), way.y()) / (edgeZoneWidth / 2)));
    for (int step = 1; step <= steps; ++step) {
        if (isAtRightEdge(frames, from + way * step / steps))
            return true;
    }
    return false;
}

} // namespace

DragEdgeMonitor::DragEdgeMonitor(InputMonitor& input, const Pointer& pointer, const Displays& displays)
    : m_input(input)
    , m_pointer(pointer)
    , m_displays(displays)
{
}

DragEdgeMonitor::~DragEdgeMonitor() = default;

void DragEdgeMonitor::start()
{
    if (!m_monitors.empty())
        return;
    if (auto monitor = m_input.monitorLeftPress([this] { leftMouseDown(); }))
        m_monitors.push_back(std::move(monitor));
    if (auto monitor = m_input.monitorLeftDrag([this] { mouseDragged(); }))
        m_monitors.push_back(std::move(monitor));
}

void DragEdgeMonitor::stop()
{
    m_monitors.clear();
}

void DragEdgeMonitor::leftMouseDown()
{
    m_changeCountAtMouseDown = m_input.dragChangeCount();
    m_hasFired = false;
    m_lastPosition = m_pointer.position();
}

// Called for every movement of every drag on the desktop, so the displays are queried last.
void DragEdgeMonitor::mouseDragged()
{
    if (m_hasFired)
        return;
    // The position is stored even before a drag of content is known, because the drag begins somewhere between two
    // samples.
    const QPointF position = m_pointer.position();
    const QPointF last = std::exchange(m_lastPosition, position).value_or(position);
    if (m_input.dragChangeCount() == m_changeCountAtMouseDown)
        return;
    if (!touchesRightEdge(m_displays.frames(), last, position))
        return;
    m_hasFired = true;
    onEdgeReached();
}

} // namespace nookle
