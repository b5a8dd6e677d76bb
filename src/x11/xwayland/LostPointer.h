#pragma once

#include <QAbstractNativeEventFilter>

#include <cstdint>

class QWindow;
struct xcb_connection_t;

namespace nookle {

/// Finds out that the pointer has left the windows of X11 programs although the X server takes it to be in a menu. The
/// server puts the pointer into a menu that opens under it; the compositor says so only later. If the pointer leaves
/// between the two, the compositor tells the server that it has left the window below the menu, and the server changes
/// nothing, because the pointer is not there. Main thread only.
class LostPointer final : public QAbstractNativeEventFilter {
public:
    /// `connection` is the toolkit's. Both arguments must outlive this object.
    LostPointer(const QWindow& panel, xcb_connection_t* connection);
    ~LostPointer() override;
    LostPointer(const LostPointer&) = delete;
    LostPointer& operator=(const LostPointer&) = delete;

    /// Whether the pointer, which the server takes to be in `menu`, is not over windows of X11 programs.
    [[nodiscard]] bool isLostIn(const QWindow& menu);

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    /// Whether the server takes the pointer to be in that window, at a place where the panel lies below it.
    [[nodiscard]] bool isAbovePanel(std::uint32_t window) const;

    const QWindow& m_panel;
    xcb_connection_t* m_connection;
    /// The numbers of the first and the last request of the last question.
    std::uint32_t m_first = 0;
    std::uint32_t m_last = 0;
};

} // namespace nookle
