#pragma once

#include "TrayHost.h"
#include "X11SelectionWatch.h"

namespace nookle {

/// A tray that embeds windows of other programs. Main thread only.
class X11TrayHost final : public TrayHost {
public:
    explicit X11TrayHost(xcb_connection_t* connection);

    [[nodiscard]] bool isPresent() const override { return m_manager.hasOwner(); }

private:
    X11SelectionWatch m_manager;
};

} // namespace nookle
