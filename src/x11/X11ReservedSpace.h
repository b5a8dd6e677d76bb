#pragma once

#include "XcbAtoms.h"

#include <QRect>
#include <QSize>

#include <cstdint>
#include <vector>

struct xcb_connection_t;

namespace nookle {

/// The space along the right edge of the desktop that other windows leave to a window of this program. The window
/// manager looks at it while that window is shown. Rectangles are in pixels of the root window. Main thread only.
class X11ReservedSpace final {
public:
    /// `connection` must outlive this object.
    X11ReservedSpace(xcb_connection_t* connection, std::uint32_t window);

    /// Whether the right edge of `display` is the desktop's. Space along another edge cannot be reserved.
    [[nodiscard]] bool isPossible(const QRect& display) const;

    /// Reserves what lies between the left edge of `panel` and the right edge of its display; nothing where that is not
    /// possible.
    void reserve(const QRect& panel, const QRect& display);
    void release();

    /// Has the window manager fit all windows to the reserved space once more. Call it an even number of times: each
    /// second call takes back what the one before it has changed. What is reserved stays as it is.
    void remind();

private:
    void tell();
    [[nodiscard]] QSize desktopSize() const;

    xcb_connection_t* m_connection;
    std::uint32_t m_window;
    XcbAtoms m_atoms;
    std::vector<std::uint32_t> m_strut;
    bool m_isMarked = false;
};

} // namespace nookle
