#include "DragSource.h"

#include <cstdint>
#include <cstdlib>

DragSource::DragSource()
    : m_connection(xcb_connect(nullptr, nullptr))
    , m_window(owner())
{
}

void DragSource::setProperty(const QByteArray& name, const QByteArray& value)
{
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, atom(name), atom("text/plain"), 8,
                        static_cast<std::uint32_t>(value.size()), value.constData());
    xcb_flush(m_connection);
}

QByteArray DragSource::property(const QByteArray& name)
{
    const auto cookie = xcb_get_property(m_connection, 0, m_window, atom(name), XCB_ATOM_ANY, 0, 1024);
    xcb_get_property_reply_t* reply = xcb_get_property_reply(m_connection, cookie, nullptr);
    const QByteArray value(static_cast<const char*>(xcb_get_property_value(reply)),
                           xcb_get_property_value_length(reply));
    std::free(reply);
    return value;
}

xcb_atom_t DragSource::atom(const QByteArray& name)
{
    const auto cookie = xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.constData());
    xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(m_connection, cookie, nullptr);
    const xcb_atom_t found = reply->atom;
    std::free(reply);
    return found;
}

xcb_window_t DragSource::owner()
{
    const auto cookie = xcb_get_selection_owner(m_connection, atom("XdndSelection"));
    xcb_get_selection_owner_reply_t* reply = xcb_get_selection_owner_reply(m_connection, cookie, nullptr);
    const xcb_window_t found = reply->owner;
    std::free(reply);
    return found;
}
