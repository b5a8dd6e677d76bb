#pragma once

#include "XcbAtoms.h"

#include <QObject>

class QWindow;
struct xcb_connection_t;

namespace nookle {

/// Has the frames of this program's windows drawn dark while the program's colours are dark. Some window managers know
/// of a window's colours only what the window says, as that of GNOME up to version 43. Main thread only.
class X11FrameTheme final : public QObject {
    Q_OBJECT

public:
    /// For all windows, those that are made later too. The connection and the application object must outlive this
    /// object.
    explicit X11FrameTheme(xcb_connection_t* connection);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void tellAll();
    void tell(const QWindow& window);

    xcb_connection_t* m_connection;
    XcbAtoms m_atoms;
};

} // namespace nookle
