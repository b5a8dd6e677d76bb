#include "KWinHand.h"

#include <array>
#include <utility>

namespace nookle::e2e {

namespace {

inline constexpr std::uint32_t version = 4;

// The requests of the interface in their order, with the types of their arguments. None has an object.
// The library takes no constant here.
std::array<const wl_interface*, 3> noObjects{};
constexpr std::array<wl_message, 11> requests{ {
    { "authenticate", "ss", noObjects.data() },
    { "pointer_motion", "ff", noObjects.data() },
    { "button", "uu", noObjects.data() },
    { "axis", "uf", noObjects.data() },
    { "touch_down", "2uff", noObjects.data() },
    { "touch_motion", "2uff", noObjects.data() },
    { "touch_up", "2u", noObjects.data() },
    { "touch_cancel", "2", noObjects.data() },
    { "touch_frame", "2", noObjects.data() },
    { "pointer_motion_absolute", "3ff", noObjects.data() },
    { "keyboard_key", "4uu", noObjects.data() },
} };
enum Request : std::uint32_t { authenticate = 0, button = 2, axis = 3, pointerMotionAbsolute = 9, keyboardKey = 10 };

constexpr wl_interface fakeInput{ "org_kde_kwin_fake_input", version, requests.size(), requests.data(), 0, nullptr };

} // namespace

KWinHand::KWinHand(std::unique_ptr<CompositorConnection> connection, wl_proxy* input)
    : m_connection(std::move(connection))
    , m_input(input)
{
}

KWinHand::~KWinHand()
{
    wl_proxy_destroy(m_input);
}

std::unique_ptr<Hand> KWinHand::tryTake(const QByteArray& socketPath)
{
    auto connection = CompositorConnection::tryConnect(socketPath);
    wl_proxy* input = connection ? connection->bind(fakeInput, version) : nullptr;
    if (!input)
        return nullptr;
    wl_proxy_marshal_flags(input, authenticate, nullptr, version, 0, "Nookle", "tests");
    connection->flush();
    return std::unique_ptr<Hand>(new KWinHand(std::move(connection), input));
}

void KWinHand::placePointer(const QPoint& point)
{
    wl_proxy_marshal_flags(m_input, pointerMotionAbsolute, nullptr, version, 0, wl_fixed_from_int(point.x()),
                           wl_fixed_from_int(point.y()));
    m_connection->flush();
}

void KWinHand::pushButton(Button which, bool isDown)
{
    wl_proxy_marshal_flags(m_input, button, nullptr, version, 0, static_cast<std::uint32_t>(which),
                           std::uint32_t{ isDown });
    m_connection->flush();
}

void KWinHand::pushKey(Key key, bool isDown)
{
    wl_proxy_marshal_flags(m_input, keyboardKey, nullptr, version, 0, static_cast<std::uint32_t>(key),
                           std::uint32_t{ isDown });
    m_connection->flush();
}

// It knows no notches.
void KWinHand::scroll(double points, int /*notches*/)
{
    wl_proxy_marshal_flags(m_input, axis, nullptr, version, 0, std::uint32_t{ WL_POINTER_AXIS_VERTICAL_SCROLL },
                           wl_fixed_from_double(points));
    m_connection->flush();
}

} // namespace nookle::e2e
