#include "AddedWindow.h"

#include "XcbOwned.h"

#include <algorithm>

namespace nookle {

using e2e::owned;

AddedWindow::AddedWindow(xcb_connection_t* connection)
    : m_connection(connection)
    , m_before(topLevelWindows())
{
}

std::vector<xcb_window_t> AddedWindow::topLevelWindows() const
{
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    const auto tree = owned(xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, root), nullptr));
    const xcb_window_t* first = xcb_query_tree_children(tree.get());
    return { first, first + xcb_query_tree_children_length(tree.get()) };
}

std::optional<xcb_window_t> AddedWindow::find() const
{
    const auto now = topLevelWindows();
    const auto added = std::find_if(now.begin(), now.end(), [this](xcb_window_t each) {
        return std::find(m_before.begin(), m_before.end(), each) == m_before.end();
    });
    return added == now.end() ? std::nullopt : std::optional(*added);
}

QRect AddedWindow::frame(xcb_window_t window) const
{
    const auto reply = owned(xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, window), nullptr));
    return { reply->x, reply->y, reply->width, reply->height };
}

std::vector<QRect> AddedWindow::shape(xcb_window_t window, xcb_shape_sk_t kind) const
{
    const auto reply = owned(
        xcb_shape_get_rectangles_reply(m_connection, xcb_shape_get_rectangles(m_connection, window, kind), nullptr));
    const xcb_rectangle_t* first = xcb_shape_get_rectangles_rectangles(reply.get());
    std::vector<QRect> parts;
    for (int index = 0; index < xcb_shape_get_rectangles_rectangles_length(reply.get()); ++index)
        parts.emplace_back(first[index].x, first[index].y, first[index].width, first[index].height);
    return parts;
}

bool AddedWindow::isShown(xcb_window_t window) const
{
    const auto reply =
        owned(xcb_get_window_attributes_reply(m_connection, xcb_get_window_attributes(m_connection, window), nullptr));
    return reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

bool AddedWindow::isLeftAlone(xcb_window_t window) const
{
    const auto reply =
        owned(xcb_get_window_attributes_reply(m_connection, xcb_get_window_attributes(m_connection, window), nullptr));
    return reply->override_redirect != 0;
}

} // namespace nookle
