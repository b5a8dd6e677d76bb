#include "X11SelectionReader.h"

#include "XcbAtoms.h"
#include "XcbReply.h"

#include <poll.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <limits>

namespace nookle {

namespace {

using Clock = X11SelectionReader::Clock;

/// Milliseconds until `deadline`, at least 0.
[[nodiscard]] int remaining(Clock::time_point deadline)
{
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    return static_cast<int>(std::clamp<decltype(left)>(left, 0, std::numeric_limits<int>::max()));
}

[[nodiscard]] std::uint8_t typeOf(const xcb_generic_event_t& event)
{
    return event.response_type & 0x7f;
}

} // namespace

/// The window that receives a selection. Each request has a window of its own, so an answer that arrives too late has
/// no effect.
class X11SelectionReader::Requestor {
public:
    Requestor(xcb_connection_t* connection, std::uint32_t root)
        : m_connection(connection)
        , m_id(xcb_generate_id(connection))
    {
        const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_id, root, -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                          XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    }
    ~Requestor()
    {
        xcb_destroy_window(m_connection, m_id);
        xcb_flush(m_connection);
    }
    Requestor(const Requestor&) = delete;
    Requestor& operator=(const Requestor&) = delete;

    [[nodiscard]] xcb_window_t id() const { return m_id; }

private:
    xcb_connection_t* m_connection;
    xcb_window_t m_id;
};

std::unique_ptr<X11SelectionReader> X11SelectionReader::tryCreate()
{
    XcbConnection connection(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(connection.get()) != 0)
        return nullptr;
    return std::unique_ptr<X11SelectionReader>(new X11SelectionReader(connection.release()));
}

X11SelectionReader::X11SelectionReader(xcb_connection_t* connection)
    : m_connection(connection)
    , m_root(xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root)
    , m_property(xcbAtom(connection, "NOOKLE_SELECTION"))
    , m_pieces(xcbAtom(connection, "INCR"))
{
}

std::optional<QByteArray> X11SelectionReader::read(std::uint32_t selection, std::uint32_t target, std::uint32_t time,
                                                   qsizetype maximumSize, Clock::time_point deadline)
{
    const Requestor requestor(m_connection.get(), m_root);
    xcb_convert_selection(m_connection.get(), requestor.id(), selection, target, m_property, time);
    if (!waitForData(requestor, deadline))
        return std::nullopt;
    auto bytes = take(requestor, maximumSize);
    return bytes && m_takenType == m_pieces ? readInPieces(requestor, maximumSize, deadline) : bytes;
}

bool X11SelectionReader::waitForData(const Requestor& requestor, Clock::time_point deadline)
{
    bool isRefused = false;
    const bool isAnswered = waitForEvent(deadline, [&](const xcb_generic_event_t& event) {
        const auto& notify = reinterpret_cast<const xcb_selection_notify_event_t&>(event);
        if (typeOf(event) != XCB_SELECTION_NOTIFY || notify.requestor != requestor.id())
            return false;
        isRefused = notify.property == XCB_ATOM_NONE;
        return true;
    });
    return isAnswered && !isRefused;
}

bool X11SelectionReader::waitForMore(const Requestor& requestor, Clock::time_point deadline)
{
    return waitForEvent(deadline, [&](const xcb_generic_event_t& event) {
        const auto& notify = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        return typeOf(event) == XCB_PROPERTY_NOTIFY && notify.window == requestor.id() && notify.atom == m_property
            && notify.state == XCB_PROPERTY_NEW_VALUE;
    });
}

template <typename Matches> bool X11SelectionReader::waitForEvent(Clock::time_point deadline, Matches matches)
{
    xcb_flush(m_connection.get());
    for (;;) {
        while (const auto event = owned(xcb_poll_for_event(m_connection.get()))) {
            if (matches(*event))
                return true;
        }
        const int timeout = remaining(deadline);
        if (timeout == 0 || xcb_connection_has_error(m_connection.get()) != 0)
            return false;
        pollfd socket{ xcb_get_file_descriptor(m_connection.get()), POLLIN, 0 };
        ::poll(&socket, 1, timeout);
    }
}

std::optional<QByteArray> X11SelectionReader::take(const Requestor& requestor, qsizetype maximumSize)
{
    constexpr qsizetype unit = 4;
    const auto cookie = xcb_get_property(m_connection.get(), 1, requestor.id(), m_property, XCB_ATOM_ANY, 0,
                                         static_cast<std::uint32_t>(maximumSize / unit));
    const auto reply = owned(xcb_get_property_reply(m_connection.get(), cookie, nullptr));
    if (!reply || reply->bytes_after != 0)
        return std::nullopt;
    m_takenType = reply->type;
    return QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())),
                      xcb_get_property_value_length(reply.get()));
}

// Deleting one piece requests the next one. An empty piece is the end.
std::optional<QByteArray> X11SelectionReader::readInPieces(const Requestor& requestor, qsizetype maximumSize,
                                                           Clock::time_point deadline)
{
    QByteArray whole;
    while (waitForMore(requestor, deadline)) {
        const auto piece = take(requestor, maximumSize - whole.size());
        if (!piece)
            return std::nullopt;
        if (piece->isEmpty())
            return whole;
        whole += *piece;
    }
    return std::nullopt;
}

} // namespace nookle
