#include "XcbAtoms.h"

#include "XcbReply.h"

#include <xcb/xcb.h>

namespace nookle {

namespace {

[[nodiscard]] xcb_intern_atom_cookie_t ask(xcb_connection_t* connection, const QByteArray& name)
{
    return xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.constData());
}

[[nodiscard]] std::uint32_t answer(xcb_connection_t* connection, xcb_intern_atom_cookie_t cookie)
{
    const auto reply = owned(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{ XCB_ATOM_NONE };
}

} // namespace

std::uint32_t xcbAtom(xcb_connection_t* connection, const QByteArray& name)
{
    return answer(connection, ask(connection, name));
}

XcbAtoms::XcbAtoms(xcb_connection_t* connection, std::initializer_list<const char*> names)
{
    std::vector<xcb_intern_atom_cookie_t> cookies;
    for (const char* name : names)
        cookies.push_back(ask(connection, name));
    auto cookie = cookies.begin();
    for (const char* name : names)
        m_atoms.emplace(name, answer(connection, *cookie++));
}

std::uint32_t XcbAtoms::operator[](QByteArrayView name) const
{
    return m_atoms.find(name)->second;
}

QStringList xcbAtomNames(xcb_connection_t* connection, const std::vector<std::uint32_t>& atoms)
{
    std::vector<xcb_get_atom_name_cookie_t> cookies;
    cookies.reserve(atoms.size());
    for (const std::uint32_t atom : atoms)
        cookies.push_back(xcb_get_atom_name(connection, atom));
    QStringList names;
    for (const auto cookie : cookies) {
        const auto reply = owned(xcb_get_atom_name_reply(connection, cookie, nullptr));
        if (reply)
            names.append(
                QString::fromLatin1(xcb_get_atom_name_name(reply.get()), xcb_get_atom_name_name_length(reply.get())));
    }
    return names;
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
