#include "StalledDrag.h"

#include "MainQueue.h"
#include "Pointer.h"

#include <utility>

namespace nookle {

namespace {

inline constexpr double timeBetweenLooks = 1;
inline constexpr int looksUntilStalled = 10;

} // namespace

StalledDrag::StalledDrag(const Pointer& pointer, MainQueue& queue)
    : m_pointer(pointer)
    , m_queue(queue)
{
}

StalledDrag::~StalledDrag() = default;

void StalledDrag::begin()
{
    m_position = m_pointer.position();
    m_looksAtRest = 0;
    m_looks = m_queue.every(timeBetweenLooks, [this] { look(); });
}

void StalledDrag::look()
{
    const QPointF position = m_pointer.position();
    if (std::exchange(m_position, position) != position) {
        m_looksAtRest = 0;
        return;
    }
    if (++m_looksAtRest < looksUntilStalled)
        return;
    m_looks.reset();
    onStalled();
}

} // namespace nookle
