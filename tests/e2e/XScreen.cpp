#include "XScreen.h"

#include "Waiting.h"
#include "XcbOwned.h"

#include <QThread>

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include <xcb/xcb_keysyms.h>
#include <xcb/xtest.h>

namespace nookle::e2e {

XScreen::XScreen(const QByteArray& display)
    : m_connection(xcb_connect(display.constData(), nullptr))
{
    if (xcb_connection_has_error(m_connection.get()) == 0)
        m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root;
}

std::vector<XWindow> XScreen::windows() const
{
    std::vector<XWindow> found;
    addWindows(m_root, found);
    return found;
}

void XScreen::addWindows(xcb_window_t parent, std::vector<XWindow>& found) const
{
    xcb_connection_t* connection = m_connection.get();
    const auto tree = owned(xcb_query_tree_reply(connection, xcb_query_tree(connection, parent), nullptr));
    if (!tree)
        return;
    const xcb_window_t* children = xcb_query_tree_children(tree.get());
    for (int index = 0; index < xcb_query_tree_children_length(tree.get()); ++index) {
        if (const auto window = describe(children[index]))
            found.push_back(*window);
        addWindows(children[index], found);
    }
}

std::optional<XWindow> XScreen::describe(xcb_window_t id) const
{
    xcb_connection_t* connection = m_connection.get();
    constexpr std::uint32_t longestClass = 64;
    const auto classCookie = xcb_get_property(connection, 0, id, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 0, longestClass);
    const auto sizeCookie = xcb_get_geometry(connection, id);
    const auto stateCookie = xcb_get_window_attributes(connection, id);
    const auto placeCookie = xcb_translate_coordinates(connection, id, m_root, 0, 0);
    const auto classReply = owned(xcb_get_property_reply(connection, classCookie, nullptr));
    const auto size = owned(xcb_get_geometry_reply(connection, sizeCookie, nullptr));
    const auto state = owned(xcb_get_window_attributes_reply(connection, stateCookie, nullptr));
    const auto place = owned(xcb_translate_coordinates_reply(connection, placeCookie, nullptr));
    if (!classReply || !size || !state || !place || classReply->value_len == 0)
        return std::nullopt;
    const QByteArray names(static_cast<const char*>(xcb_get_property_value(classReply.get())),
                           static_cast<qsizetype>(classReply->value_len));
    return XWindow{ id, names.split('\0').value(0), QRect(place->dst_x, place->dst_y, size->width, size->height),
                    state->map_state == XCB_MAP_STATE_VIEWABLE };
}

std::optional<XWindow> XScreen::window(const QByteArray& windowClass, std::optional<int> width) const
{
    for (const XWindow& each : windows()) {
        if (each.isMapped && each.windowClass == windowClass && (!width || each.frame.width() == *width))
            return each;
    }
    return std::nullopt;
}

QRect XScreen::geometry() const
{
    const auto reply =
        owned(xcb_get_geometry_reply(m_connection.get(), xcb_get_geometry(m_connection.get(), m_root), nullptr));
    return reply ? QRect(0, 0, reply->width, reply->height) : QRect();
}

QImage XScreen::picture(const QRect& area) const
{
    const auto cookie =
        xcb_get_image(m_connection.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_root, static_cast<std::int16_t>(area.x()),
                      static_cast<std::int16_t>(area.y()), static_cast<std::uint16_t>(area.width()),
                      static_cast<std::uint16_t>(area.height()), ~0U);
    const auto reply = owned(xcb_get_image_reply(m_connection.get(), cookie, nullptr));
    if (!reply)
        return {};
    return QImage(xcb_get_image_data(reply.get()), area.width(), area.height(), QImage::Format_RGB32).copy();
}

void XScreen::setWallpaper(QRgb color)
{
    const QRect area = geometry();
    const xcb_screen_t& screen = *xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data;
    const xcb_pixmap_t picture = xcb_generate_id(m_connection.get());
    xcb_create_pixmap(m_connection.get(), screen.root_depth, picture, m_root, static_cast<std::uint16_t>(area.width()),
                      static_cast<std::uint16_t>(area.height()));
    const xcb_gcontext_t context = xcb_generate_id(m_connection.get());
    const std::uint32_t pixel = color & 0xffffffU;
    xcb_create_gc(m_connection.get(), context, picture, XCB_GC_FOREGROUND, &pixel);
    const xcb_rectangle_t all{ 0, 0, static_cast<std::uint16_t>(area.width()),
                               static_cast<std::uint16_t>(area.height()) };
    xcb_poly_fill_rectangle(m_connection.get(), picture, context, 1, &all);
    xcb_free_gc(m_connection.get(), context);
    xcb_change_window_attributes(m_connection.get(), m_root, XCB_CW_BACK_PIXMAP, &picture);
    xcb_clear_area(m_connection.get(), 0, m_root, 0, 0, 0, 0);
    for (const char* name : { "_XROOTPMAP_ID", "_XSETROOT_ID" })
        xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, m_root, atom(name), XCB_ATOM_PIXMAP, 32, 1,
                            &picture);
    xcb_flush(m_connection.get());
}

xcb_window_t XScreen::focus() const
{
    const auto cookie = xcb_get_input_focus(m_connection.get());
    const auto reply = owned(xcb_get_input_focus_reply(m_connection.get(), cookie, nullptr));
    return reply ? reply->focus : xcb_window_t{ XCB_WINDOW_NONE };
}

xcb_atom_t XScreen::atom(const QByteArray& name) const
{
    const auto cookie =
        xcb_intern_atom(m_connection.get(), 0, static_cast<std::uint16_t>(name.size()), name.constData());
    const auto reply = owned(xcb_intern_atom_reply(m_connection.get(), cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{ XCB_ATOM_NONE };
}

bool XScreen::hasOwner(const QByteArray& selection) const
{
    const auto cookie = xcb_get_selection_owner(m_connection.get(), atom(selection));
    const auto reply = owned(xcb_get_selection_owner_reply(m_connection.get(), cookie, nullptr));
    return reply && reply->owner != xcb_window_t{ XCB_WINDOW_NONE };
}

bool XScreen::rootHas(const QByteArray& property) const
{
    const auto cookie = xcb_get_property(m_connection.get(), 0, m_root, atom(property), XCB_ATOM_ANY, 0, 1);
    const auto reply = owned(xcb_get_property_reply(m_connection.get(), cookie, nullptr));
    return reply && reply->type != XCB_ATOM_NONE;
}

std::vector<std::uint32_t> XScreen::rootNumbers(const QByteArray& property) const
{
    constexpr std::uint32_t longest = 1024;
    const auto cookie = xcb_get_property(m_connection.get(), 0, m_root, atom(property), XCB_ATOM_ANY, 0, longest);
    const auto reply = owned(xcb_get_property_reply(m_connection.get(), cookie, nullptr));
    if (!reply || reply->format != 32)
        return {};
    const auto* numbers = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return { numbers, numbers + reply->value_len };
}

void XScreen::setRootNumbers(const QByteArray& property, const std::vector<std::uint32_t>& numbers)
{
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, m_root, atom(property), XCB_ATOM_CARDINAL, 32,
                        static_cast<std::uint32_t>(numbers.size()), numbers.data());
    xcb_flush(m_connection.get());
}

void XScreen::removeFromRoot(const QByteArray& property)
{
    xcb_delete_property(m_connection.get(), m_root, atom(property));
    xcb_flush(m_connection.get());
}

void XScreen::place(const XWindow& window, const QRect& frame)
{
    const std::uint32_t values[] = { static_cast<std::uint32_t>(frame.x()), static_cast<std::uint32_t>(frame.y()),
                                     static_cast<std::uint32_t>(frame.width()),
                                     static_cast<std::uint32_t>(frame.height()) };
    xcb_configure_window(m_connection.get(), window.id,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                         values);
    xcb_flush(m_connection.get());
}

xcb_window_t XScreen::makeWindow(const QRect& frame)
{
    const xcb_window_t window = xcb_generate_id(m_connection.get());
    xcb_create_window(m_connection.get(), XCB_COPY_FROM_PARENT, window, m_root, static_cast<std::int16_t>(frame.x()),
                      static_cast<std::int16_t>(frame.y()), static_cast<std::uint16_t>(frame.width()),
                      static_cast<std::uint16_t>(frame.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    return window;
}

void XScreen::claim(const QByteArray& selection)
{
    xcb_set_selection_owner(m_connection.get(), makeWindow(QRect(0, 0, 1, 1)), atom(selection), XCB_CURRENT_TIME);
    xcb_flush(m_connection.get());
}

void XScreen::disown(const QByteArray& selection)
{
    xcb_set_selection_owner(m_connection.get(), XCB_WINDOW_NONE, atom(selection), XCB_CURRENT_TIME);
    xcb_flush(m_connection.get());
}

xcb_keycode_t XScreen::keyFor(xcb_keysym_t symbol) const
{
    const std::unique_ptr<xcb_key_symbols_t, decltype(&xcb_key_symbols_free)> symbols(
        xcb_key_symbols_alloc(m_connection.get()), &xcb_key_symbols_free);
    const auto keys = owned(xcb_key_symbols_get_keycode(symbols.get(), symbol));
    return keys ? *keys : xcb_keycode_t{ 0 };
}

bool XScreen::isShortcutHeld(xcb_keycode_t key) const
{
    constexpr std::uint16_t modifiers = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1 | XCB_MOD_MASK_4;
    xcb_connection_t* connection = m_connection.get();
    // Nobody may find the key held by the test.
    xcb_grab_server(connection);
    const auto grab =
        xcb_grab_key_checked(connection, 0, m_root, modifiers, key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const bool isHeld = owned(xcb_request_check(connection, grab)) != nullptr;
    if (!isHeld)
        xcb_ungrab_key(connection, key, m_root, modifiers);
    xcb_ungrab_server(connection);
    xcb_flush(connection);
    return isHeld;
}

std::array<std::vector<xcb_keycode_t>, 8> XScreen::modifierKeys() const
{
    const auto cookie = xcb_get_modifier_mapping(m_connection.get());
    const auto reply = owned(xcb_get_modifier_mapping_reply(m_connection.get(), cookie, nullptr));
    std::array<std::vector<xcb_keycode_t>, 8> keys;
    if (!reply)
        return keys;
    const xcb_keycode_t* next = xcb_get_modifier_mapping_keycodes(reply.get());
    for (auto& each : keys) {
        each.assign(next, next + reply->keycodes_per_modifier);
        next += reply->keycodes_per_modifier;
    }
    return keys;
}

void XScreen::setModifierKeys(const std::array<std::vector<xcb_keycode_t>, 8>& keys)
{
    std::size_t width = 0;
    for (const auto& each : keys)
        width = std::max(width, each.size());
    std::vector<xcb_keycode_t> all;
    for (auto each : keys) {
        each.resize(width);
        all.insert(all.end(), each.begin(), each.end());
    }
    xcb_set_modifier_mapping(m_connection.get(), static_cast<std::uint8_t>(width), all.data());
    xcb_flush(m_connection.get());
}

void XScreen::pressKey(xcb_keysym_t symbol)
{
    fake(XCB_KEY_PRESS, keyFor(symbol));
}

void XScreen::releaseKey(xcb_keysym_t symbol)
{
    fake(XCB_KEY_RELEASE, keyFor(symbol));
}

bool XScreen::beginDrag(const QPoint& at)
{
    constexpr int attempts = 5;
    constexpr int patienceForDrag = 2000;
    const QByteArray selection("XdndSelection");
    disown(selection);
    for (int attempt = 0; attempt < attempts; ++attempt) {
        moveTo(at);
        press();
        for (const QPoint& by : { QPoint(4, 2), QPoint(9, 4), QPoint(15, 6), QPoint(24, 8) })
            moveTo(at + by);
        if (waitFor([&] { return hasOwner(selection); }, patienceForDrag))
            return true;
        release();
    }
    qWarning("no drag begins at %d,%d", at.x(), at.y());
    return false;
}

void XScreen::showDock(int height)
{
    const QRect frame(0, 0, geometry().width(), height);
    const xcb_window_t window = makeWindow(frame);
    const xcb_atom_t type = atom("_NET_WM_WINDOW_TYPE_DOCK");
    const std::uint32_t strut[] = {
        0, 0, static_cast<std::uint32_t>(height), 0, 0, 0, 0, 0, 0, static_cast<std::uint32_t>(frame.width() - 1), 0, 0
    };
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, window, atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM,
                        32, 1, &type);
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, window, atom("_NET_WM_STRUT_PARTIAL"),
                        XCB_ATOM_CARDINAL, 32, 12, strut);
    xcb_map_window(m_connection.get(), window);
    xcb_flush(m_connection.get());
}

QPoint XScreen::pointer() const
{
    const auto cookie = xcb_query_pointer(m_connection.get(), m_root);
    const auto reply = owned(xcb_query_pointer_reply(m_connection.get(), cookie, nullptr));
    return reply ? QPoint(reply->root_x, reply->root_y) : QPoint();
}

xcb_window_t XScreen::windowUnderPointer() const
{
    xcb_window_t innermost = m_root;
    for (xcb_window_t next = m_root; next != XCB_WINDOW_NONE;) {
        innermost = next;
        const auto cookie = xcb_query_pointer(m_connection.get(), next);
        const auto reply = owned(xcb_query_pointer_reply(m_connection.get(), cookie, nullptr));
        next = reply ? reply->child : xcb_window_t{ XCB_WINDOW_NONE };
    }
    return innermost;
}

void XScreen::fake(std::uint8_t type, std::uint8_t detail, const QPoint& by)
{
    xcb_test_fake_input(m_connection.get(), type, detail, XCB_CURRENT_TIME, XCB_WINDOW_NONE,
                        static_cast<std::int16_t>(by.x()), static_cast<std::int16_t>(by.y()), 0);
    xcb_flush(m_connection.get());
}

void XScreen::moveTo(const QPoint& point)
{
    constexpr int longestStep = 24;
    constexpr int pace = 8;
    for (QPoint way = point - pointer(); !way.isNull(); way = point - pointer()) {
        const double length = std::hypot(way.x(), way.y());
        const QPoint step = length <= longestStep ? way : (QPointF(way) * longestStep / length).toPoint();
        const QPoint before = pointer();
        moveBy(step);
        // A hand's pace, and not a wait: programs see a movement and not a jump.
        QThread::msleep(pace);
        if (pointer() == before)
            return;
    }
}

void XScreen::moveBy(const QPoint& step)
{
    constexpr std::uint8_t isRelative = 1;
    fake(XCB_MOTION_NOTIFY, isRelative, step);
}

void XScreen::press(std::uint8_t button)
{
    fake(XCB_BUTTON_PRESS, button);
}

void XScreen::release(std::uint8_t button)
{
    fake(XCB_BUTTON_RELEASE, button);
}

void XScreen::mapButtons(const std::vector<std::uint8_t>& buttons)
{
    const auto present =
        owned(xcb_get_pointer_mapping_reply(m_connection.get(), xcb_get_pointer_mapping(m_connection.get()), nullptr));
    const std::uint8_t* map = xcb_get_pointer_mapping_map(present.get());
    std::vector<std::uint8_t> changed(map, map + xcb_get_pointer_mapping_map_length(present.get()));
    std::copy(buttons.begin(), buttons.end(), changed.begin());
    const auto cookie =
        xcb_set_pointer_mapping(m_connection.get(), static_cast<std::uint8_t>(changed.size()), changed.data());
    if (!owned(xcb_set_pointer_mapping_reply(m_connection.get(), cookie, nullptr)))
        qWarning("the buttons cannot be mapped");
}

} // namespace nookle::e2e
