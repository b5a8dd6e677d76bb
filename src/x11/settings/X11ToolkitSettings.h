#pragma once

#include "ToolkitSettings.h"
#include "X11SelectionWatch.h"
#include "XcbAtoms.h"

#include <QAbstractNativeEventFilter>

#include <cstdint>

struct xcb_connection_t;

namespace nookle {

/// The settings on the X server that the environment names. For before the toolkit has a connection.
[[nodiscard]] ToolkitSettings::Values publishedX11Settings();

/// The settings that the owner of the settings selection publishes, in most desktops a part of the session. Follows
/// their changes, and a program that takes over. Keeps changes with a resolution out of bounds from the toolkit.
class X11ToolkitSettings final : public ToolkitSettings, private QAbstractNativeEventFilter {
public:
    /// Reads the settings, which queries the server. The toolkit's connection, which must outlive this object.
    explicit X11ToolkitSettings(xcb_connection_t* connection);
    ~X11ToolkitSettings() override;
    X11ToolkitSettings(const X11ToolkitSettings&) = delete;
    X11ToolkitSettings& operator=(const X11ToolkitSettings&) = delete;

    [[nodiscard]] const Values& values() const override { return m_values; }

private:
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
    void findOwner();
    void read();

    xcb_connection_t* m_connection;
    XcbAtoms m_atoms;
    X11SelectionWatch m_watch;
    std::uint32_t m_owner = 0;
    Values m_values;
};

} // namespace nookle
