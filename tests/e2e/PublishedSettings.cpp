#include "PublishedSettings.h"

#include <QDataStream>
#include <QIODevice>
#include <QSysInfo>

#include <cstdint>

namespace nookle::e2e {

namespace {

constexpr std::uint8_t integerType = 0;
constexpr std::uint8_t stringType = 1;
constexpr std::uint8_t bigEndian = 1;

[[nodiscard]] QByteArray padded(QByteArray text)
{
    while (text.size() % 4 != 0)
        text.append('\0');
    return text;
}

void append(QDataStream& stream, const QByteArray& text)
{
    const QByteArray bytes = padded(text);
    stream.writeRawData(bytes.constData(), static_cast<int>(bytes.size()));
}

} // namespace

PublishedSettings::PublishedSettings(const QByteArray& display)
    : m_connection(xcb_connect(display.constData(), nullptr))
    , m_window(xcb_generate_id(m_connection.get()))
{
    const auto root = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root;
    xcb_create_window(m_connection.get(), 0, m_window, root, -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, 0, 0,
                      nullptr);
}

void PublishedSettings::publish(const std::vector<std::pair<QByteArray, Value>>& settings)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    const std::uint32_t serial = ++m_serial;
    stream << bigEndian << std::uint8_t(0) << std::uint16_t(0) << serial << static_cast<std::uint32_t>(settings.size());
    for (const auto& [name, value] : settings) {
        const auto* text = std::get_if<QByteArray>(&value);
        stream << (text ? stringType : integerType) << std::uint8_t(0) << static_cast<std::uint16_t>(name.size());
        append(stream, name);
        stream << serial;
        if (text) {
            stream << static_cast<std::uint32_t>(text->size());
            append(stream, *text);
        } else {
            stream << std::get<std::int32_t>(value);
        }
    }
    const xcb_atom_t property = atom("_XSETTINGS_SETTINGS");
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, m_window, property, property, 8,
                        static_cast<std::uint32_t>(bytes.size()), bytes.constData());
    xcb_set_selection_owner(m_connection.get(), m_window, atom("_XSETTINGS_S0"), XCB_CURRENT_TIME);
    xcb_flush(m_connection.get());
}

xcb_atom_t PublishedSettings::atom(const QByteArray& name) const
{
    const auto cookie =
        xcb_intern_atom(m_connection.get(), 0, static_cast<std::uint16_t>(name.size()), name.constData());
    const auto reply = owned(xcb_intern_atom_reply(m_connection.get(), cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{ XCB_ATOM_NONE };
}

} // namespace nookle::e2e
