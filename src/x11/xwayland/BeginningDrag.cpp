#include "BeginningDrag.h"

#include "MainQueue.h"
#include "Pointer.h"

#include <utility>

namespace nookle {

namespace {

inline constexpr double timeBetweenLooks = 0.05;

/// By this look the compositor knows of the drag.
inline constexpr int firstLook = 3;

/// The pointer may rest, or be over a Wayland program, of which the X server knows nothing once the drag has ended.
inline constexpr int lastLook = 20;

} // namespace

BeginningDrag::BeginningDrag(const Pointer& pointer, MainQueue& queue)
    : m_pointer(pointer)
    , m_queue(queue)
{
}

BeginningDrag::~BeginningDrag() = default;

void BeginningDrag::begin()
{
    m_lookCount = 0;
    m_looks = m_queue.every(timeBetweenLooks, [this] { look(); });
}

void BeginningDrag::look()
{
    ++m_lookCount;
    const QPointF position = m_pointer.position();
    const bool hasMoved = std::exchange(m_position, position) != position && m_lookCount > firstLook;
    if (!hasMoved && m_lookCount < lastLook)
        return;
    m_looks.reset();
    onSeen();
}

} // namespace nookle
