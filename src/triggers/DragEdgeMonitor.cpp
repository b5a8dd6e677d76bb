#include "DragEdgeMonitor.h"

#include "Displays.h"
#include "InputMonitor.h"
#include "Pointer.h"

namespace nookle {

namespace {

inline constexpr double edgeZoneWidth = 3;

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

void DragEdgeMonitor::leftMouseDown()
{
    m_changeCountAtMouseDown = m_input.dragChangeCount();
    m_hasFired = false;
}

// Runs for every movement of every drag on the desktop: the cheap tests come first.
void DragEdgeMonitor::mouseDragged()
{
    if (m_hasFired)
        return;
    if (m_input.dragChangeCount() == m_changeCountAtMouseDown)
        return;
    const QPointF position = m_pointer.position();
    const auto display = frameAt(m_displays.frames(), position);
    if (!display || position.x() < display->right() - edgeZoneWidth)
        return;
    m_hasFired = true;
    onEdgeReached();
}

} // namespace nookle
