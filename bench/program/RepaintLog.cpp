#include "RepaintLog.h"

#include <QElapsedTimer>

#include <poll.h>

#include <cstdlib>
#include <utility>

namespace nookle::bench {

namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

} // namespace

std::unique_ptr<RepaintLog> RepaintLog::tryCreate(const QByteArray& display)
{
    std::unique_ptr<RepaintLog> log(new RepaintLog);
    log->m_connection.reset(xcb_connect(display.constData(), nullptr));
    return log->begin() ? std::move(log) : nullptr;
}

bool RepaintLog::begin()
{
    xcb_connection_t* connection = m_connection.get();
    if (xcb_connection_has_error(connection) != 0)
        return false;
    const auto* extension = xcb_get_extension_data(connection, &xcb_damage_id);
    if (!extension || extension->present == 0)
        return false;
    m_firstEvent = extension->first_event;
    const auto version = xcb_damage_query_version(connection, 1, 1);
    const std::unique_ptr<xcb_damage_query_version_reply_t, Free> reply(
        xcb_damage_query_version_reply(connection, version, nullptr));
    const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    xcb_change_window_attributes(connection, root, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(connection);
    return reply != nullptr;
}

void RepaintLog::watch(xcb_window_t window)
{
    m_watches.push_back(xcb_generate_id(m_connection.get()));
    xcb_damage_create(m_connection.get(), m_watches.back(), window, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    xcb_flush(m_connection.get());
}

void RepaintLog::forget()
{
    for (const xcb_damage_damage_t watch : std::exchange(m_watches, {}))
        xcb_damage_destroy(m_connection.get(), watch);
    // After the reply there is nothing of theirs on the way any more.
    const auto cookie = xcb_get_input_focus(m_connection.get());
    const std::unique_ptr<xcb_get_input_focus_reply_t, Free> reply(
        xcb_get_input_focus_reply(m_connection.get(), cookie, nullptr));
    while (const auto event = std::unique_ptr<xcb_generic_event_t, Free>(xcb_poll_for_event(m_connection.get()))) {}
}

bool RepaintLog::waitForPaintedWindow(int width)
{
    constexpr int patience = 20'000;
    QElapsedTimer elapsed;
    elapsed.start();
    while (elapsed.elapsed() < patience) {
        const std::unique_ptr<xcb_generic_event_t, Free> event(xcb_poll_for_event(m_connection.get()));
        if (!event) {
            pollfd waiting{ xcb_get_file_descriptor(m_connection.get()), POLLIN, 0 };
            ::poll(&waiting, 1, 100);
            continue;
        }
        const int type = event->response_type & 0x7f;
        if (type == XCB_CREATE_NOTIFY)
            watch(reinterpret_cast<const xcb_create_notify_event_t&>(*event).window);
        const bool isPainted = type == m_firstEvent + XCB_DAMAGE_NOTIFY
            && reinterpret_cast<const xcb_damage_notify_event_t&>(*event).geometry.width == width;
        if (isPainted)
            return true;
    }
    return false;
}

} // namespace nookle::bench
