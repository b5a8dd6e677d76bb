#pragma once

#include <functional>

namespace nookle {

/// Who offers the content of a drag on the X server.
enum class DragOwner {
    none,
    thisProgram,
    /// Another X11 program.
    otherProgram,
    /// The compositor, for a Wayland program.
    compositor,
};

/// What the X server tells of drags of content. Main thread only.
class DragOffers {
public:
    virtual ~DragOffers() = default;

    /// Asks whether the present drag goes on. The answer may take its time, or never come.
    virtual void ask() = 0;

    /// Called with each answer to `ask`. Set by the owner of this object.
    std::function<void(bool goesOn)> onAnswered = [](bool) {};

    /// Called when a drag begins, and when one is known to have ended (`none`). Set by the owner of this object.
    std::function<void(DragOwner)> onOwnerChanged = [](DragOwner) {};
};

} // namespace nookle
