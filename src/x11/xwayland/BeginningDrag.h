#pragma once

#include <QPointF>

#include <functional>
#include <memory>

namespace nookle {

class Cancellable;
class MainQueue;
class Pointer;

/// Tells when the compositor has seen a drag of this program move. It learns of the drag a moment after its beginning.
/// Main thread only.
class BeginningDrag final {
public:
    /// The arguments must outlive this object.
    BeginningDrag(const Pointer& pointer, MainQueue& queue);
    ~BeginningDrag();
    BeginningDrag(const BeginningDrag&) = delete;
    BeginningDrag& operator=(const BeginningDrag&) = delete;

    /// Call this when a drag begins. Its end need not be told.
    void begin();

    /// Called once after each beginning, at the latest a second later. Set by the owner.
    std::function<void()> onSeen = [] {};

private:
    void look();

    const Pointer& m_pointer;
    MainQueue& m_queue;
    std::unique_ptr<Cancellable> m_looks;
    QPointF m_position;
    int m_lookCount = 0;
};

} // namespace nookle
