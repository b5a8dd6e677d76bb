#pragma once

#include <QPointF>

#include <functional>
#include <memory>

namespace nookle {

class Cancellable;
class MainQueue;
class Pointer;

/// Ends a drag of this program once the pointer rests. Not every compositor tells an X11 program that its drag was
/// released over the bare desktop: the drag would go on until the pointer comes back. Main thread only.
class StalledDrag final {
public:
    /// The arguments must outlive this object.
    StalledDrag(const Pointer& pointer, MainQueue& queue);
    ~StalledDrag();
    StalledDrag(const StalledDrag&) = delete;
    StalledDrag& operator=(const StalledDrag&) = delete;

    /// Call this when a drag begins. Its end need not be told.
    void begin();

    /// Called once after each beginning, when the pointer has rested for 10 seconds. The drag may have ended long
    /// before. Set by the owner.
    std::function<void()> onStalled = [] {};

private:
    void look();

    const Pointer& m_pointer;
    MainQueue& m_queue;
    std::unique_ptr<Cancellable> m_looks;
    QPointF m_position;
    /// How often the pointer was found where it was before.
    int m_looksAtRest = 0;
};

} // namespace nookle
