#include "WindowLog.h"

#include "XcbReply.h"

#include <QElapsedTimer>
#include <QHash>

#include <poll.h>

namespace nookle::bench {

std::unique_ptr<WindowLog> WindowLog::tryCreate(const QByteArray& display)
{
    std::unique_ptr<WindowLog> log(new WindowLog);
    log->m_connection.reset(xcb_connect(display.constData(), nullptr));
    xcb_connection_t* connection = log->m_connection.get();
    if (xcb_connection_has_error(connection) != 0)
        return nullptr;
    const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    xcb_change_window_attributes(connection, root, XCB_CW_EVENT_MASK, &mask);
    log->forget();
    return log;
}

void WindowLog::forget()
{
    // After the reply there is nothing older on the way any more.
    const auto cookie = xcb_get_input_focus(m_connection.get());
    [[maybe_unused]] const auto reply = owned(xcb_get_input_focus_reply(m_connection.get(), cookie, nullptr));
    while (owned(xcb_poll_for_event(m_connection.get()))) {}
}

bool WindowLog::waitForWindow(int width)
{
    constexpr int patience = 20'000;
    constexpr int pollInterval = 100;
    QHash<xcb_window_t, int> widths;
    QHash<xcb_window_t, bool> mapped;
    QElapsedTimer elapsed;
    elapsed.start();
    while (elapsed.elapsed() < patience) {
        const auto event = owned(xcb_poll_for_event(m_connection.get()));
        if (!event) {
            pollfd waiting{ xcb_get_file_descriptor(m_connection.get()), POLLIN, 0 };
            ::poll(&waiting, 1, pollInterval);
            continue;
        }
        xcb_window_t window = XCB_WINDOW_NONE;
        switch (event->response_type & 0x7f) {
        case XCB_CREATE_NOTIFY: {
            const auto& created = reinterpret_cast<const xcb_create_notify_event_t&>(*event);
            widths.insert(created.window, created.width);
            break;
        }
        case XCB_CONFIGURE_NOTIFY: {
            const auto& configured = reinterpret_cast<const xcb_configure_notify_event_t&>(*event);
            window = configured.window;
            widths.insert(window, configured.width);
            break;
        }
        case XCB_MAP_NOTIFY:
            window = reinterpret_cast<const xcb_map_notify_event_t&>(*event).window;
            mapped.insert(window, true);
            break;
        default:
            break;
        }
        if (mapped.value(window) && widths.value(window) == width)
            return true;
    }
    return false;
}

} // namespace nookle::bench
