#include "X11SelectionReader.h"

#include "X11SelectionTransfer.h"
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

} // namespace

std::unique_ptr<X11SelectionReader> X11SelectionReader::tryCreate()
{
    XcbConnection connection(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(connection.get()) != 0)
        return nullptr;
    return std::unique_ptr<X11SelectionReader>(new X11SelectionReader(connection.release()));
}

X11SelectionReader::X11SelectionReader(xcb_connection_t* connection)
    : m_connection(connection)
{
}

std::optional<QByteArray> X11SelectionReader::read(std::uint32_t selection, std::uint32_t target, std::uint32_t time,
                                                   qsizetype maximumSize, Clock::time_point deadline)
{
    X11SelectionTransfer transfer(m_connection.get(), { selection, target, time, maximumSize });
    for (;;) {
        while (const auto event = owned(xcb_poll_for_event(m_connection.get()))) {
            transfer.handle(*event);
            if (transfer.isDone())
                return transfer.bytes();
        }
        const int timeout = remaining(deadline);
        if (timeout == 0 || xcb_connection_has_error(m_connection.get()) != 0)
            return std::nullopt;
        pollfd socket{ xcb_get_file_descriptor(m_connection.get()), POLLIN, 0 };
        ::poll(&socket, 1, timeout);
    }
}

} // namespace nookle
