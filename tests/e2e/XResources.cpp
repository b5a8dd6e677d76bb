#include "XResources.h"

#include "XcbOwned.h"

#include <xcb/res.h>
#include <xcb/xcb.h>

namespace nookle::e2e {

namespace {

/// 0 when the server does not know it.
[[nodiscard]] qint64 processOf(xcb_connection_t* connection, xcb_window_t client)
{
    const xcb_res_client_id_spec_t wanted{ client, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID };
    const auto reply =
        owned(xcb_res_query_client_ids_reply(connection, xcb_res_query_client_ids(connection, 1, &wanted), nullptr));
    if (!reply || reply->num_ids == 0)
        return 0;
    const auto id = xcb_res_query_client_ids_ids_iterator(reply.get());
    return xcb_res_client_id_value_value_length(id.data) > 0 ? *xcb_res_client_id_value_value(id.data) : 0;
}

[[nodiscard]] long resourcesOf(xcb_connection_t* connection, xcb_window_t client)
{
    const auto cookie = xcb_res_query_client_resources(connection, client);
    const auto reply = owned(xcb_res_query_client_resources_reply(connection, cookie, nullptr));
    long count = 0;
    if (!reply)
        return count;
    const auto* types = xcb_res_query_client_resources_types(reply.get());
    for (int index = 0; index < xcb_res_query_client_resources_types_length(reply.get()); ++index)
        count += types[index].count;
    return count;
}

} // namespace

long xResources(const QByteArray& display, qint64 processId)
{
    const XcbConnection connection(xcb_connect(display.constData(), nullptr));
    const auto version =
        owned(xcb_res_query_version_reply(connection.get(), xcb_res_query_version(connection.get(), 1, 2), nullptr));
    const auto clients =
        owned(xcb_res_query_clients_reply(connection.get(), xcb_res_query_clients(connection.get()), nullptr));
    if (!version || !clients)
        return -1;
    const xcb_res_client_t* each = xcb_res_query_clients_clients(clients.get());
    long count = 0;
    for (int index = 0; index < xcb_res_query_clients_clients_length(clients.get()); ++index) {
        if (processOf(connection.get(), each[index].resource_base) == processId)
            count += resourcesOf(connection.get(), each[index].resource_base);
    }
    return count;
}

} // namespace nookle::e2e
