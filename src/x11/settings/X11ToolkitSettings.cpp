#include "X11ToolkitSettings.h"

#include "WindowScale.h"
#include "XSettingsText.h"
#include "XcbConnection.h"
#include "XcbReply.h"

#include <QCoreApplication>

#include <xcb/xcb.h>

#include <utility>

namespace nookle {

namespace {

inline constexpr char selection[] = "_XSETTINGS_S0";
inline constexpr char property[] = "_XSETTINGS_SETTINGS";
/// In units of four bytes. Real settings take a few kilobytes.
inline constexpr std::uint32_t largest = 64 * 1024;

[[nodiscard]] xcb_window_t ownerOf(xcb_connection_t* connection, xcb_atom_t settingsSelection)
{
    const auto cookie = xcb_get_selection_owner(connection, settingsSelection);
    const auto reply = owned(xcb_get_selection_owner_reply(connection, cookie, nullptr));
    return reply ? reply->owner : xcb_window_t{ XCB_WINDOW_NONE };
}

[[nodiscard]] ToolkitSettings::Values settingsOf(xcb_connection_t* connection, xcb_window_t owner,
                                                 xcb_atom_t settingsProperty)
{
    if (owner == XCB_WINDOW_NONE)
        return {};
    const auto cookie = xcb_get_property(connection, 0, owner, settingsProperty, XCB_ATOM_ANY, 0, largest);
    const auto reply = owned(xcb_get_property_reply(connection, cookie, nullptr));
    if (!reply)
        return {};
    const auto* bytes = static_cast<const char*>(xcb_get_property_value(reply.get()));
    return parseXSettings({ bytes, xcb_get_property_value_length(reply.get()) });
}

} // namespace

ToolkitSettings::Values publishedX11Settings()
{
    const XcbConnection connection(xcb_connect(nullptr, nullptr));
    const XcbAtoms atoms(connection.get(), { selection, property });
    return settingsOf(connection.get(), ownerOf(connection.get(), atoms[selection]), atoms[property]);
}

X11ToolkitSettings::X11ToolkitSettings(xcb_connection_t* connection)
    : m_connection(connection)
    , m_atoms(connection, { selection, property })
    , m_watch(connection, selection)
{
    m_watch.onChanged = [this] {
        findOwner();
        read();
    };
    QCoreApplication::instance()->installNativeEventFilter(this);
    findOwner();
    read();
}

X11ToolkitSettings::~X11ToolkitSettings()
{
    if (QCoreApplication::instance())
        QCoreApplication::instance()->removeNativeEventFilter(this);
}

void X11ToolkitSettings::findOwner()
{
    m_owner = ownerOf(m_connection, m_atoms[selection]);
    if (m_owner == 0)
        return;
    // What the toolkit asks for on the same connection, so that neither takes events from the other.
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_connection, m_owner, XCB_CW_EVENT_MASK, &events);
}

void X11ToolkitSettings::read()
{
    const Values values = settingsOf(m_connection, m_owner, m_atoms[property]);
    if (std::exchange(m_values, values) != values && onChanged)
        onChanged();
}

// The toolkit hears nothing of a resolution with which it would make windows that no display can show. It reads all
// settings again with the next change that it hears of.
bool X11ToolkitSettings::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto* event = static_cast<const xcb_property_notify_event_t*>(message);
    const bool isChange = (event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY && event->window == m_owner
        && event->atom == m_atoms[property];
    if (!isChange)
        return false;
    read();
    return resolutionInstead(m_values).has_value();
}

} // namespace nookle
