#include "X11PropertyWriter.h"

#include "XcbAtoms.h"
#include "XcbReply.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <utility>

namespace nookle {

namespace {

/// In bytes.
inline constexpr std::size_t sizeOfEvent = 32;

} // namespace

std::unique_ptr<X11PropertyWriter> X11PropertyWriter::tryCreate(const Limits& limits)
{
    XcbConnection connection(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(connection.get()) != 0)
        return nullptr;
    return std::unique_ptr<X11PropertyWriter>(new X11PropertyWriter(connection.release(), limits));
}

X11PropertyWriter::X11PropertyWriter(xcb_connection_t* connection, const Limits& limits)
    : m_connection(connection)
    , m_limits(limits)
    , m_inPieces(xcbAtom(connection, "INCR"))
    , m_notifier(xcb_get_file_descriptor(connection), QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, &X11PropertyWriter::readEvents);
    m_stallTimer.setInterval(m_limits.patience);
    connect(&m_stallTimer, &QTimer::timeout, this, &X11PropertyWriter::endStalledDeliveries);
}

X11PropertyWriter::~X11PropertyWriter() = default;

bool X11PropertyWriter::write(std::uint32_t window, std::uint32_t property, std::uint32_t type, const QByteArray& bytes)
{
    // A receiver that repeats a request has given up the delivery that was running there.
    endDeliveries([=](const Delivery& each) { return each.window == window && each.property == property; });
    const auto size = static_cast<std::size_t>(bytes.size());
    if (size <= m_limits.pieceSize) {
        xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, window, property, type, 8,
                            static_cast<std::uint32_t>(size), bytes.constData());
        return true;
    }
    if (m_deliveries.size() >= m_limits.deliveries)
        return false;
    m_deliveries.push_back(Delivery{ window, property, type, bytes, 0, Clock::now() });
    if (!m_stallTimer.isActive())
        m_stallTimer.start();
    // Select the events before the announcement, because the receiver may react at once.
    watch(window);
    const auto announcedSize = static_cast<std::uint32_t>(size);
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, window, property, m_inPieces, 32, 1, &announcedSize);
    return true;
}

void X11PropertyWriter::writeNumbers(std::uint32_t window, std::uint32_t property, std::uint32_t type,
                                     const std::vector<std::uint32_t>& numbers)
{
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, window, property, type, 32,
                        static_cast<std::uint32_t>(numbers.size()), numbers.data());
}

std::vector<std::uint32_t> X11PropertyWriter::readNumbers(std::uint32_t window, std::uint32_t property)
{
    return xcbNumbers(m_connection.get(), window, property);
}

void X11PropertyWriter::notify(const xcb_selection_notify_event_t& answer)
{
    // The library sends the size of the largest event. What lies behind a smaller one in memory is nobody else's
    // concern.
    std::array<char, sizeOfEvent> event{};
    std::memcpy(event.data(), &answer, sizeof(answer));
    xcb_send_event(m_connection.get(), 0, answer.requestor, XCB_EVENT_MASK_NO_EVENT, event.data());
    // Waiting for a reply may have queued events, and the socket does not signal them again.
    readEvents();
}

void X11PropertyWriter::readEvents()
{
    while (const auto event = owned(xcb_poll_for_event(m_connection.get())))
        handle(*event);
    xcb_flush(m_connection.get());
}

void X11PropertyWriter::handle(const xcb_generic_event_t& event)
{
    constexpr std::uint8_t error = 0;
    const auto windowIs = [](std::uint32_t window) {
        return [window](const Delivery& each) { return each.window == window; };
    };
    switch (event.response_type & 0x7f) {
    case error:
        // An error about a property means that its window is gone.
        endDeliveries(windowIs(reinterpret_cast<const xcb_value_error_t&>(event).bad_value));
        return;
    case XCB_DESTROY_NOTIFY:
        endDeliveries(windowIs(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window));
        return;
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (change.state == XCB_PROPERTY_DELETE)
            sendPiece(change.window, change.atom);
        return;
    }
    default:
        return;
    }
}

// An empty piece marks the end.
void X11PropertyWriter::sendPiece(std::uint32_t window, std::uint32_t property)
{
    const auto found = std::find_if(m_deliveries.begin(), m_deliveries.end(), [=](const Delivery& each) {
        return each.window == window && each.property == property;
    });
    if (found == m_deliveries.end())
        return;
    const auto left = static_cast<std::size_t>(found->bytes.size()) - found->sent;
    const std::size_t size = std::min(left, m_limits.pieceSize);
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, window, property, found->type, 8,
                        static_cast<std::uint32_t>(size), found->bytes.constData() + found->sent);
    found->sent += size;
    found->lastStep = Clock::now();
    if (size == 0)
        endDeliveries([=](const Delivery& each) { return each.window == window && each.property == property; });
}

template <typename Matches> void X11PropertyWriter::endDeliveries(Matches matches)
{
    const auto first = std::stable_partition(m_deliveries.begin(), m_deliveries.end(),
                                             [&](const Delivery& each) { return !matches(each); });
    const std::vector<Delivery> ended(std::make_move_iterator(first), std::make_move_iterator(m_deliveries.end()));
    m_deliveries.erase(first, m_deliveries.end());
    for (const Delivery& each : ended)
        watch(each.window);
    if (m_deliveries.empty())
        m_stallTimer.stop();
}

// Selects the events of a window while something is being delivered to it.
void X11PropertyWriter::watch(std::uint32_t window)
{
    const bool isReceiving = std::any_of(m_deliveries.begin(), m_deliveries.end(),
                                         [=](const Delivery& each) { return each.window == window; });
    const std::uint32_t events =
        isReceiving ? XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY : XCB_EVENT_MASK_NO_EVENT;
    xcb_change_window_attributes(m_connection.get(), window, XCB_CW_EVENT_MASK, &events);
}

void X11PropertyWriter::endStalledDeliveries()
{
    const auto latest = Clock::now() - m_limits.patience;
    endDeliveries([=](const Delivery& each) { return each.lastStep <= latest; });
    xcb_flush(m_connection.get());
}

} // namespace nookle
