#pragma once

#include "ScreenDisplays.h"

#include <memory>

namespace nookle {

class DisplayProbe;

/// The compositor's displays. It applies its panels to the shelf's windows itself, so the whole of each is usable. Main
/// thread only.
class WaylandDisplays final : public ScreenDisplays {
public:
    WaylandDisplays();
    ~WaylandDisplays() override;

    [[nodiscard]] QRectF visibleFrame(const QRectF& frame) const override { return frame; }

    /// Asks the compositor if there are several displays.
    void findActive(Found found) const override;

private:
    mutable std::unique_ptr<DisplayProbe, QScopedPointerDeleteLater> m_probe;
};

} // namespace nookle
