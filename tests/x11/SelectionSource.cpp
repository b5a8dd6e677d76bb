#include "SelectionSource.h"

#include <poll.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <utility>

namespace nookle {

namespace {

inline constexpr qsizetype pieceSize = 60'000;
inline constexpr int pollInterval = 10;

} // namespace

SelectionSource::SelectionSource(const QByteArray& selection, QByteArray bytes, Manner manner)
    : m_connection(xcb_connect(nullptr, nullptr))
    , m_window(xcb_generate_id(m_connection))
    , m_selection(atom(selection))
    , m_bytes(std::move(bytes))
    , m_manner(manner)
{
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_set_selection_owner(m_connection, m_window, m_selection, XCB_CURRENT_TIME);
    // A round trip: the selection is owned from here on.
    std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    m_thread = std::thread([this] { serve(); });
}

SelectionSource::~SelectionSource()
{
    m_isEnding = true;
    m_thread.join();
    xcb_disconnect(m_connection);
}

xcb_atom_t SelectionSource::atom(const QByteArray& name)
{
    const auto cookie = xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.constData());
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(m_connection, cookie, nullptr), &std::free);
    return reply ? reply->atom : xcb_atom_t{ XCB_ATOM_NONE };
}

void SelectionSource::serve()
{
    while (!m_isEnding) {
        pollfd socket{ xcb_get_file_descriptor(m_connection), POLLIN, 0 };
        ::poll(&socket, 1, pollInterval);
        for (;;) {
            const std::unique_ptr<xcb_generic_event_t, decltype(&std::free)> event(xcb_poll_for_event(m_connection),
                                                                                   &std::free);
            if (!event)
                break;
            const auto type = event->response_type & 0x7f;
            if (type == XCB_SELECTION_REQUEST)
                answer(reinterpret_cast<const xcb_selection_request_event_t&>(*event));
            const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(*event);
            if (type == XCB_PROPERTY_NOTIFY && change.state == XCB_PROPERTY_DELETE)
                sendPiece(change.window, change.atom);
        }
    }
}

void SelectionSource::answer(const xcb_selection_request_event_t& request)
{
    if (m_manner == Manner::silent)
        return;
    if (m_manner == Manner::refusing) {
        notify(request, XCB_ATOM_NONE);
        return;
    }
    if (m_manner != Manner::whole) {
        beginPieces(request);
        return;
    }
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, request.requestor, request.property, request.target, 8,
                        static_cast<std::uint32_t>(m_bytes.size()), m_bytes.constData());
    notify(request, request.property);
}

void SelectionSource::beginPieces(const xcb_selection_request_event_t& request)
{
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_connection, request.requestor, XCB_CW_EVENT_MASK, &events);
    const auto size = static_cast<std::uint32_t>(m_bytes.size());
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, request.requestor, request.property, atom("INCR"), 32, 1,
                        &size);
    m_sent = 0;
    notify(request, request.property);
}

void SelectionSource::sendPiece(xcb_window_t requestor, xcb_atom_t property)
{
    const bool hasSentOne = m_sent > 0;
    if (hasSentOne && m_manner == Manner::stuckMidway)
        return;
    if (hasSentOne && m_manner == Manner::dyingMidway) {
        xcb_destroy_window(m_connection, m_window);
        xcb_flush(m_connection);
        return;
    }
    const QByteArray piece = m_manner == Manner::dripping ? m_bytes.left(1) : m_bytes.mid(m_sent, pieceSize);
    m_sent += piece.size();
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, requestor, property, XCB_ATOM_STRING, 8,
                        static_cast<std::uint32_t>(piece.size()), piece.constData());
    xcb_flush(m_connection);
}

void SelectionSource::notify(const xcb_selection_request_event_t& request, xcb_atom_t property)
{
    xcb_selection_notify_event_t event{};
    event.response_type = XCB_SELECTION_NOTIFY;
    event.time = request.time;
    event.requestor = request.requestor;
    event.selection = request.selection;
    event.target = request.target;
    event.property = property;
    std::array<char, 32> sent{};
    std::memcpy(sent.data(), &event, sizeof event);
    xcb_send_event(m_connection, 0, request.requestor, 0, sent.data());
    xcb_flush(m_connection);
}

} // namespace nookle
