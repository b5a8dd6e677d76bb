#pragma once

#include "Compositing.h"

#include <QAbstractNativeEventFilter>

#include <cstdint>

struct xcb_connection_t;

namespace nookle {

/// Watches for a compositing manager: it owns a selection while it runs. Main thread only.
class X11Compositing final : public Compositing, private QAbstractNativeEventFilter {
public:
    explicit X11Compositing(xcb_connection_t* connection);
    ~X11Compositing() override;

    [[nodiscard]] Backdrop backdrop() const override { return m_backdrop; }

private:
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
    [[nodiscard]] Backdrop look() const;

    xcb_connection_t* m_connection;
    std::uint32_t m_root;
    std::uint32_t m_selection;
    std::uint8_t m_firstFixesEvent = 0;
    Backdrop m_backdrop = Backdrop::opaque;
};

} // namespace nookle
