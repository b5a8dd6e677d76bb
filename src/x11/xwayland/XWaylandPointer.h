#pragma once

#include "OfferedDrags.h"
#include "SeenPointer.h"

namespace nookle {

/// The pointer under XWayland, where the X server knows nothing of it while it is over Wayland programs. Main thread
/// only.
class XWaylandPointer final : public SeenPointer {
public:
    /// `drags` must outlive this object.
    explicit XWaylandPointer(const OfferedDrags& drags)
        : m_drags(drags)
    {
    }

    /// Also true while a drag of another program is known to go on elsewhere.
    [[nodiscard]] bool isLeftButtonDown() const override
    {
        return SeenPointer::isLeftButtonDown() || m_drags.isKnownToGoOn();
    }

private:
    const OfferedDrags& m_drags;
};

} // namespace nookle
