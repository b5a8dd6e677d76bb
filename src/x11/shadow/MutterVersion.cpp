#include "MutterVersion.h"

#include "XcbAtoms.h"
#include "XcbReply.h"
#include "XcbRoot.h"

#include <xcb/xcb.h>

namespace nookle {

namespace {

/// The oldest that has been seen to do so. Version 43 forgets.
inline constexpr int firstThatKeeps = 48;

} // namespace

QByteArray mutterVersion(xcb_connection_t* connection)
{
    constexpr std::uint32_t mostWords = 16;
    const XcbAtoms atoms(connection, { "_NET_SUPPORTING_WM_CHECK", "_MUTTER_VERSION" });
    const auto windows = xcbNumbers(connection, rootOf(connection), atoms["_NET_SUPPORTING_WM_CHECK"]);
    if (windows.empty())
        return {};
    const auto cookie =
        xcb_get_property(connection, 0, windows.front(), atoms["_MUTTER_VERSION"], XCB_ATOM_ANY, 0, mostWords);
    const auto reply = owned(xcb_get_property_reply(connection, cookie, nullptr));
    if (!reply || reply->format != 8)
        return {};
    return { static_cast<const char*>(xcb_get_property_value(reply.get())),
             xcb_get_property_value_length(reply.get()) };
}

bool keepsInputShapes(const QByteArray& mutterVersion)
{
    return mutterVersion.split('.').constFirst().toInt() >= firstThatKeeps;
}

} // namespace nookle
