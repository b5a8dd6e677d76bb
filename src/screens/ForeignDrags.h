#pragma once

#include <functional>

namespace nookle {

/// Tells when any program begins to drag content, on desktops that say so before the drag comes over a window of this
/// program. Main thread only.
class ForeignDrags {
public:
    virtual ~ForeignDrags() = default;

    /// Tries to watch from now on, unless it is watched already. Fails where nothing tells of drags yet.
    [[nodiscard]] virtual bool watch() = 0;

    /// Call this when a drag of another program has come that nothing has told of: finds out whose it is where
    /// something may know by now.
    virtual void dragCame() = 0;

    /// Whether a drag has begun and has not ended, as far as is known.
    [[nodiscard]] virtual bool isUnderWay() const = 0;

    /// Whether the drag that is under way, or else the last one, is known to be an X11 program's.
    [[nodiscard]] virtual bool isOfX11Program() const { return false; }

    /// Call this when a sign elsewhere shows that no drag is under way: nobody tells of the end of every drag.
    virtual void end() = 0;

    /// Called when a drag has begun, even if the end of the last one was not noticed, or ended. Set by the owner.
    std::function<void()> onChanged;
};

} // namespace nookle
