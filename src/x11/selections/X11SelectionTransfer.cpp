#include "X11SelectionTransfer.h"

#include "XcbAtoms.h"
#include "XcbReply.h"
#include "XcbRoot.h"

#include <xcb/xcb.h>

#include <utility>

namespace nookle {

namespace {

inline constexpr const char* answerProperty = "NOOKLE_SELECTION";
inline constexpr const char* inPieces = "INCR";

[[nodiscard]] xcb_window_t makeWindow(xcb_connection_t* connection)
{
    const xcb_window_t window = xcb_generate_id(connection);
    const xcb_window_t root = rootOf(connection);
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, root, -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    return window;
}

} // namespace

X11SelectionTransfer::X11SelectionTransfer(xcb_connection_t* connection, const Request& request)
    : m_connection(connection)
    , m_window(makeWindow(connection))
    , m_maximumSize(request.maximumSize)
    , m_excess(request.excess)
{
    const XcbAtoms atoms(connection, { answerProperty, inPieces });
    m_property = atoms[answerProperty];
    m_pieces = atoms[inPieces];
    xcb_convert_selection(connection, m_window, request.selection, request.target, m_property, request.time);
    xcb_flush(connection);
}

X11SelectionTransfer::~X11SelectionTransfer()
{
    xcb_destroy_window(m_connection, m_window);
    xcb_flush(m_connection);
}

void X11SelectionTransfer::handle(const xcb_generic_event_t& event)
{
    const auto type = event.response_type & 0x7f;
    const auto& answer = reinterpret_cast<const xcb_selection_notify_event_t&>(event);
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (m_state == State::waitingForAnswer && type == XCB_SELECTION_NOTIFY && answer.requestor == m_window)
        takeAnswer(answer.property);
    else if (m_state == State::waitingForPiece && type == XCB_PROPERTY_NOTIFY && change.window == m_window
             && change.atom == m_property && change.state == XCB_PROPERTY_NEW_VALUE)
        takePiece();
}

void X11SelectionTransfer::takeAnswer(std::uint32_t property)
{
    if (property == XCB_ATOM_NONE) {
        finish(std::nullopt);
        return;
    }
    auto bytes = take(m_maximumSize);
    if (bytes && m_takenType == m_pieces)
        m_state = State::waitingForPiece;
    else
        finish(std::move(bytes));
}

// Deleting one piece requests the next one. An empty piece is the end.
void X11SelectionTransfer::takePiece()
{
    const auto piece = take(m_maximumSize - m_arrived.size());
    if (!piece)
        finish(std::nullopt);
    else if (m_wasTooLarge)
        finish(m_arrived + *piece);
    else if (piece->isEmpty())
        finish(std::move(m_arrived));
    else
        m_arrived += *piece;
}

void X11SelectionTransfer::finish(std::optional<QByteArray> bytes)
{
    m_bytes = std::move(bytes);
    m_state = State::done;
}

std::optional<QByteArray> X11SelectionTransfer::take(qsizetype maximumSize)
{
    constexpr qsizetype unit = 4;
    const auto cookie = xcb_get_property(m_connection, 1, m_window, m_property, XCB_ATOM_ANY, 0,
                                         static_cast<std::uint32_t>(maximumSize / unit));
    const auto reply = owned(xcb_get_property_reply(m_connection, cookie, nullptr));
    m_wasTooLarge = reply && reply->bytes_after != 0;
    if (!reply || (m_wasTooLarge && m_excess == Excess::refuse))
        return std::nullopt;
    m_takenType = reply->type;
    return QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())),
                      xcb_get_property_value_length(reply.get()));
}

} // namespace nookle
