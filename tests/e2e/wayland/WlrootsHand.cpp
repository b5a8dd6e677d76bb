#include "WlrootsHand.h"

#include <QTemporaryFile>

#include <array>
#include <utility>

namespace nookle::e2e {

namespace {

inline constexpr std::uint32_t version = 1;
// The library takes no constant here.
std::array<const wl_interface*, 5> noObjects{};

// The requests of each interface in their order, with the types of their arguments.
namespace mouse {
constexpr std::array<wl_message, 9> requests{ {
    { "motion", "uff", noObjects.data() },
    { "motion_absolute", "uuuuu", noObjects.data() },
    { "button", "uuu", noObjects.data() },
    { "axis", "uuf", noObjects.data() },
    { "frame", "", noObjects.data() },
    { "axis_source", "u", noObjects.data() },
    { "axis_stop", "uu", noObjects.data() },
    { "axis_discrete", "uufi", noObjects.data() },
    { "destroy", "", noObjects.data() },
} };
enum Request : std::uint32_t { motionAbsolute = 1, button = 2, axis = 3, frame = 4, axisSource = 5, axisDiscrete = 7 };
constexpr wl_interface device{ "zwlr_virtual_pointer_v1", version, requests.size(), requests.data(), 0, nullptr };
} // namespace mouse

namespace keyboard {
constexpr std::array<wl_message, 4> requests{ {
    { "keymap", "uhu", noObjects.data() },
    { "key", "uuu", noObjects.data() },
    { "modifiers", "uuuu", noObjects.data() },
    { "destroy", "", noObjects.data() },
} };
enum Request : std::uint32_t { keymap = 0, key = 1, modifiers = 2 };
/// In the state of the keymap below.
inline constexpr std::uint32_t controlMask = 1 << 2;
constexpr wl_interface device{ "zwp_virtual_keyboard_v1", version, requests.size(), requests.data(), 0, nullptr };
} // namespace keyboard

std::array<const wl_interface*, 2> mouseOfSeat{ &wl_seat_interface, &mouse::device };
const wl_message makeMouse{ "create_virtual_pointer", "?on", mouseOfSeat.data() };
const wl_interface mice{ "zwlr_virtual_pointer_manager_v1", version, 1, &makeMouse, 0, nullptr };

std::array<const wl_interface*, 2> keyboardOfSeat{ &wl_seat_interface, &keyboard::device };
const wl_message makeKeyboard{ "create_virtual_keyboard", "on", keyboardOfSeat.data() };
const wl_interface keyboards{ "zwp_virtual_keyboard_manager_v1", version, 1, &makeKeyboard, 0, nullptr };

// The compositor has the files that are named here.
constexpr auto* keymapText = "xkb_keymap { xkb_keycodes { include \"evdev\" }; xkb_types { include \"complete\" }; "
                             "xkb_compat { include \"complete\" }; xkb_symbols { include \"pc+us\" }; };";

} // namespace

WlrootsHand::WlrootsHand(std::unique_ptr<CompositorConnection> connection, const QPoint& desktop)
    : m_connection(std::move(connection))
    , m_desktop(desktop)
{
    m_clock.start();
}

WlrootsHand::~WlrootsHand()
{
    for (wl_proxy* device : { m_mouse, m_keyboard }) {
        if (device)
            wl_proxy_destroy(device);
    }
}

std::unique_ptr<Hand> WlrootsHand::tryTake(const QByteArray& socketPath, const QPoint& desktop)
{
    auto connection = CompositorConnection::tryConnect(socketPath);
    if (!connection)
        return nullptr;
    std::unique_ptr<WlrootsHand> hand(new WlrootsHand(std::move(connection), desktop));
    if (!hand->makeDevices() || !hand->sendKeymap())
        return nullptr;
    return hand;
}

bool WlrootsHand::makeDevices()
{
    wl_proxy* seat = m_connection->bind(wl_seat_interface, version);
    wl_proxy* mouseMaker = m_connection->bind(mice, version);
    wl_proxy* keyboardMaker = m_connection->bind(keyboards, version);
    if (seat && mouseMaker && keyboardMaker) {
        m_mouse = wl_proxy_marshal_flags(mouseMaker, 0, &mouse::device, version, 0, seat, nullptr);
        m_keyboard = wl_proxy_marshal_flags(keyboardMaker, 0, &keyboard::device, version, 0, seat, nullptr);
    }
    for (wl_proxy* proxy : { seat, mouseMaker, keyboardMaker }) {
        if (proxy)
            wl_proxy_destroy(proxy);
    }
    return m_mouse && m_keyboard;
}

bool WlrootsHand::sendKeymap()
{
    const QByteArray text(keymapText);
    const qsizetype size = text.size() + 1;
    QTemporaryFile file;
    if (!file.open() || file.write(text.constData(), size) != size || !file.flush())
        return false;
    wl_proxy_marshal_flags(m_keyboard, keyboard::keymap, nullptr, version, 0,
                           std::uint32_t{ WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1 }, file.handle(),
                           static_cast<std::uint32_t>(size));
    m_connection->flush();
    return true;
}

// Movements and buttons count once their frame has ended.
void WlrootsHand::endFrame()
{
    wl_proxy_marshal_flags(m_mouse, mouse::frame, nullptr, version, 0);
    m_connection->flush();
}

void WlrootsHand::placePointer(const QPoint& point)
{
    const auto number = [](int coordinate) { return static_cast<std::uint32_t>(coordinate); };
    wl_proxy_marshal_flags(m_mouse, mouse::motionAbsolute, nullptr, version, 0, time(), number(point.x()),
                           number(point.y()), number(m_desktop.x()), number(m_desktop.y()));
    endFrame();
}

void WlrootsHand::pushButton(Button which, bool isDown)
{
    wl_proxy_marshal_flags(m_mouse, mouse::button, nullptr, version, 0, time(), static_cast<std::uint32_t>(which),
                           std::uint32_t{ isDown });
    endFrame();
}

void WlrootsHand::pushKey(Key which, bool isDown)
{
    wl_proxy_marshal_flags(m_keyboard, keyboard::key, nullptr, version, 0, time(), static_cast<std::uint32_t>(which),
                           std::uint32_t{ isDown });
    // The compositor does not conclude it from the keys.
    if (which == Key::control)
        wl_proxy_marshal_flags(m_keyboard, keyboard::modifiers, nullptr, version, 0,
                               isDown ? keyboard::controlMask : 0U, 0U, 0U, 0U);
    m_connection->flush();
}

void WlrootsHand::scroll(double points, int notches)
{
    constexpr std::uint32_t vertical = WL_POINTER_AXIS_VERTICAL_SCROLL;
    const wl_fixed_t way = wl_fixed_from_double(points);
    const std::uint32_t source = notches == 0 ? WL_POINTER_AXIS_SOURCE_FINGER : WL_POINTER_AXIS_SOURCE_WHEEL;
    wl_proxy_marshal_flags(m_mouse, mouse::axisSource, nullptr, version, 0, source);
    if (notches == 0)
        wl_proxy_marshal_flags(m_mouse, mouse::axis, nullptr, version, 0, time(), vertical, way);
    else
        wl_proxy_marshal_flags(m_mouse, mouse::axisDiscrete, nullptr, version, 0, time(), vertical, way, notches);
    endFrame();
}

} // namespace nookle::e2e
