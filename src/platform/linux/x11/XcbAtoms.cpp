#include "XcbAtoms.h"

#include "XcbReply.h"

#include <xcb/xcb.h>

namespace nookle {

std::uint32_t xcbAtom(xcb_connection_t* connection, const QByteArray& name)
{
    const auto cookie = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.constData());
    const auto reply = owned(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{ XCB_ATOM_NONE };
}

std::vector<std::uint32_t> xcbNumbers(xcb_connection_t* connection, std::uint32_t window, std::uint32_t property)
{
    constexpr std::uint32_t longestList = 4096;
    const auto cookie = xcb_get_property(connection, 0, window, property, XCB_ATOM_ANY, 0, longestList);
    const auto reply = owned(xcb_get_property_reply(connection, cookie, nullptr));
    if (!reply || reply->format != 32)
        return {};
    const auto* numbers = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return { numbers, numbers + reply->value_len };
}

} // namespace nookle
