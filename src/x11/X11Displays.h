#pragma once

#include "ScreenDisplays.h"
#include "XcbAtoms.h"

#include <QRect>
#include <QSize>

#include <cstdint>

struct xcb_connection_t;

namespace nookle {

/// The toolkit's screens, with the area of each that panels, docks and the window manager leave free. Queries the X
/// server for that area at every call.
class X11Displays final : public ScreenDisplays {
    Q_OBJECT

public:
    /// `connection` must outlive this object.
    X11Displays(xcb_connection_t* connection, std::uint32_t root);

    [[nodiscard]] QRectF visibleFrame(const QRectF& frame) const override;

private:
    [[nodiscard]] QSize desktopSize() const;
    [[nodiscard]] std::uint32_t presentDesktop() const;
    /// The work area of the whole desktop.
    [[nodiscard]] std::optional<QRect> commonWorkArea() const;
    /// The work area within a display.
    [[nodiscard]] std::optional<QRect> ownWorkArea(const QRect& display) const;
    [[nodiscard]] QRect usable(const QRect& display) const;

    xcb_connection_t* m_connection;
    std::uint32_t m_root;
    XcbAtoms m_atoms;
};

} // namespace nookle
