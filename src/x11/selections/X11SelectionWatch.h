#pragma once

#include <QAbstractNativeEventFilter>
#include <QByteArray>

#include <cstdint>
#include <functional>

struct xcb_connection_t;

namespace nookle {

/// Watches the owner of a selection. Programs that offer a service to the whole display own a selection for it. Main
/// thread only.
class X11SelectionWatch final : private QAbstractNativeEventFilter {
public:
    X11SelectionWatch(xcb_connection_t* connection, const char* selection);
    ~X11SelectionWatch() override;
    X11SelectionWatch(const X11SelectionWatch&) = delete;
    X11SelectionWatch& operator=(const X11SelectionWatch&) = delete;

    /// Whether the selection has an owner now. Queries the server.
    [[nodiscard]] bool hasOwner() const;

    /// The owner's window and the server's timestamp at the last change; 0 before the first one.
    [[nodiscard]] std::uint32_t owner() const { return m_owner; }
    [[nodiscard]] std::uint32_t ownedSince() const { return m_ownedSince; }

    /// Called when the owner has changed or there is none any more. Set by the user of this object.
    std::function<void()> onChanged = [] {};

private:
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

    xcb_connection_t* m_connection;
    std::uint32_t m_selection;
    std::uint32_t m_owner = 0;
    std::uint32_t m_ownedSince = 0;
    std::uint8_t m_firstFixesEvent = 0;
};

} // namespace nookle
