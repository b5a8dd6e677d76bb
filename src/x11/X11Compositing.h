#pragma once

#include "Compositing.h"
#include "X11SelectionWatch.h"

namespace nookle {

/// Watches the selection that a compositing manager owns while it runs. Main thread only.
class X11Compositing final : public Compositing {
public:
    explicit X11Compositing(xcb_connection_t* connection);

    [[nodiscard]] Backdrop backdrop() const override { return m_backdrop; }

private:
    [[nodiscard]] Backdrop look() const;
    void managerChanged();

    xcb_connection_t* m_connection;
    X11SelectionWatch m_manager;
    Backdrop m_backdrop;
};

} // namespace nookle
