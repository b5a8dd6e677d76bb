#pragma once

#include "Compositing.h"
#include "X11SelectionWatch.h"

#include <QAbstractNativeEventFilter>

#include <cstdint>

namespace nookle {

/// Watches the selection that a compositing manager owns while it runs, and the property by which it says that it blurs
/// what lies behind windows. Main thread only.
class X11Compositing final : public Compositing, private QAbstractNativeEventFilter {
public:
    /// `connection` is the toolkit's.
    explicit X11Compositing(xcb_connection_t* connection);
    ~X11Compositing() override;

    [[nodiscard]] Backdrop backdrop() const override { return m_backdrop; }

private:
    [[nodiscard]] Backdrop look() const;
    void update();
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

    xcb_connection_t* m_connection;
    std::uint32_t m_blur;
    X11SelectionWatch m_manager;
    Backdrop m_backdrop;
};

} // namespace nookle
