#include "X11InputMonitor.h"

#include "Log.h"
#include "XcbAtoms.h"
#include "XcbReply.h"

#include <xcb/xcb.h>
#include <xcb/xfixes.h>
#include <xcb/xinput.h>

#include <chrono>
#include <utility>

namespace nookle {

namespace {

inline constexpr std::uint32_t leftButton = 1;

/// Short enough that the panel opens without a visible delay, and long enough to cost little with any mouse.
inline constexpr std::chrono::milliseconds movementInterval{ 25 };

[[nodiscard]] const xcb_screen_t* screenOf(xcb_connection_t* connection, int number)
{
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screens.rem > 0 && number > 0; --number)
        xcb_screen_next(&screens);
    return screens.rem > 0 ? screens.data : nullptr;
}

} // namespace

X11InputMonitor::X11InputMonitor(xcb_connection_t* ownConnection)
    : m_ownConnection(ownConnection)
{
    if (!connectToServer() || !hasInputExtension() || !watchDragSelection()) {
        logLine(QStringLiteral("the X server reports no input of other programs: dragging to the edge does nothing"));
        m_connection.reset();
        return;
    }
    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection.get()), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &X11InputMonitor::readEvents);
    m_pause.setSingleShot(true);
    m_pause.setInterval(movementInterval);
    connect(&m_pause, &QTimer::timeout, this, &X11InputMonitor::readEvents);
    readButtonMapping();
    selectRawEvents(false);
    // The server handles requests in order: once this reply is here, no press is missed.
    const auto cookie = xcb_get_input_focus(m_connection.get());
    [[maybe_unused]] const auto reply = owned(xcb_get_input_focus_reply(m_connection.get(), cookie, nullptr));
    // Events that arrived before the reply are in the connection's queue, and its socket does not signal them again.
    QMetaObject::invokeMethod(this, &X11InputMonitor::readEvents, Qt::QueuedConnection);
}

X11InputMonitor::~X11InputMonitor() = default;

// With a connection of its own, these events do not fill the toolkit's queue: up to a thousand a second during a drag.
bool X11InputMonitor::connectToServer()
{
    int screenNumber = 0;
    m_connection.reset(xcb_connect(nullptr, &screenNumber));
    if (xcb_connection_has_error(m_connection.get()) != 0)
        return false;
    const xcb_screen_t* screen = screenOf(m_connection.get(), screenNumber);
    if (!screen)
        return false;
    m_root = screen->root;
    return true;
}

bool X11InputMonitor::hasInputExtension()
{
    const auto* extension = xcb_get_extension_data(m_connection.get(), &xcb_input_id);
    if (!extension || extension->present == 0)
        return false;
    m_inputOpcode = extension->major_opcode;
    // From version 2.1 on, raw events also arrive while another program holds a grab.
    const auto cookie = xcb_input_xi_query_version(m_connection.get(), 2, 2);
    const auto reply = owned(xcb_input_xi_query_version_reply(m_connection.get(), cookie, nullptr));
    return reply && (reply->major_version > 2 || (reply->major_version == 2 && reply->minor_version >= 1));
}

bool X11InputMonitor::watchDragSelection()
{
    const auto* extension = xcb_get_extension_data(m_connection.get(), &xcb_xfixes_id);
    if (!extension || extension->present == 0)
        return false;
    m_firstFixesEvent = extension->first_event;
    const auto cookie = xcb_xfixes_query_version(m_connection.get(), 2, 0);
    const auto reply = owned(xcb_xfixes_query_version_reply(m_connection.get(), cookie, nullptr));
    const std::uint32_t selection = xcbAtom(m_connection.get(), "XdndSelection");
    if (!reply || selection == XCB_ATOM_NONE)
        return false;
    xcb_xfixes_select_selection_input(m_connection.get(), m_root, selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
    return true;
}

void X11InputMonitor::selectRawEvents(bool withMotion)
{
    struct EventMask {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    };
    EventMask selection{};
    selection.head.deviceid = XCB_INPUT_DEVICE_ALL_MASTER;
    selection.head.mask_len = 1;
    selection.mask = XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE;
    if (withMotion)
        selection.mask |= XCB_INPUT_XI_EVENT_MASK_RAW_MOTION;
    xcb_input_xi_select_events(m_connection.get(), m_root, 1, &selection.head);
    xcb_flush(m_connection.get());
}

void X11InputMonitor::readButtonMapping()
{
    const auto cookie = xcb_get_pointer_mapping(m_connection.get());
    const auto reply = owned(xcb_get_pointer_mapping_reply(m_connection.get(), cookie, nullptr));
    if (!reply)
        return;
    const std::uint8_t* buttons = xcb_get_pointer_mapping_map(reply.get());
    m_buttonMapping.assign(buttons, buttons + xcb_get_pointer_mapping_map_length(reply.get()));
}

// Raw events contain the button numbers of the device.
std::uint32_t X11InputMonitor::userButton(std::uint32_t deviceButton) const
{
    const bool isMapped = deviceButton >= 1 && deviceButton <= m_buttonMapping.size();
    return isMapped ? m_buttonMapping[deviceButton - 1] : deviceButton;
}

void X11InputMonitor::readEvents()
{
    m_hasMoved = false;
    while (const auto event = owned(xcb_poll_for_event(m_connection.get())))
        handle(*event);
    if (xcb_connection_has_error(m_connection.get()) != 0) {
        m_notifier->setEnabled(false);
        return;
    }
    m_notifier->setEnabled(!m_hasMoved);
    if (!m_hasMoved)
        return;
    // All waiting movements count as one, because only the pointer's last position matters. The pause delays the next
    // ones.
    m_pause.start();
    m_dragHandlers.call();
}

void X11InputMonitor::handle(const xcb_generic_event_t& event)
{
    const std::uint8_t type = event.response_type & 0x7f;
    if (type == m_firstFixesEvent + XCB_XFIXES_SELECTION_NOTIFY) {
        const auto& notify = reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
        if (notify.owner != XCB_WINDOW_NONE && !isOwnWindow(notify.owner))
            ++m_dragChangeCount;
        return;
    }
    if (type == XCB_MAPPING_NOTIFY) {
        readButtonMapping();
        return;
    }
    if (type == XCB_GE_GENERIC)
        handleRawEvent(event);
}

void X11InputMonitor::handleRawEvent(const xcb_generic_event_t& event)
{
    const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
    if (generic.extension != m_inputOpcode)
        return;
    if (generic.event_type == XCB_INPUT_RAW_MOTION) {
        // Some motion events still arrive after the release, because the server stops them a little later.
        m_hasMoved = m_isLeftButtonDown;
        return;
    }
    const auto& button = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event);
    if (userButton(button.detail) != leftButton)
        return;
    m_isLeftButtonDown = generic.event_type == XCB_INPUT_RAW_BUTTON_PRESS;
    m_hasMoved = false;
    selectRawEvents(m_isLeftButtonDown);
    if (m_isLeftButtonDown)
        m_pressHandlers.call();
}

bool X11InputMonitor::isOwnWindow(std::uint32_t window) const
{
    const xcb_setup_t* setup = xcb_get_setup(m_ownConnection);
    return (window & ~setup->resource_id_mask) == setup->resource_id_base;
}

std::unique_ptr<Cancellable> X11InputMonitor::monitorLeftPress(std::function<void()> handler)
{
    return m_connection ? m_pressHandlers.add(std::move(handler)) : nullptr;
}

std::unique_ptr<Cancellable> X11InputMonitor::monitorLeftDrag(std::function<void()> handler)
{
    return m_connection ? m_dragHandlers.add(std::move(handler)) : nullptr;
}

} // namespace nookle
