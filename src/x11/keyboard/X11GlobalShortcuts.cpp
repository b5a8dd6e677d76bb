#include "X11GlobalShortcuts.h"

#include "Log.h"
#include "X11Keys.h"
#include "XcbReply.h"
#include "XcbRoot.h"

#include <QKeySequence>
#include <QStringList>

#include <algorithm>
#include <optional>
#include <utility>

namespace nookle {

namespace {

// From the keyboard symbols of the X protocol.
constexpr xcb_keysym_t numLockSymbol = 0xff7f;
constexpr xcb_keysym_t altSymbol = 0xffe9;
constexpr xcb_keysym_t superSymbol = 0xffeb;

constexpr std::uint16_t allModifiers = 0xff;

constexpr std::uint32_t firstNumber = 1;

} // namespace

X11GlobalShortcuts::X11GlobalShortcuts()
    : m_connection(xcb_connect(nullptr, nullptr))
{
    if (xcb_connection_has_error(m_connection.get()) != 0) {
        m_connection.reset();
        return;
    }
    m_root = rootOf(m_connection.get());
    m_symbols.reset(xcb_key_symbols_alloc(m_connection.get()));
    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection.get()), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &X11GlobalShortcuts::readEvents);
}

X11GlobalShortcuts::~X11GlobalShortcuts() = default;

std::unique_ptr<Cancellable> X11GlobalShortcuts::registerShortcut(QKeyCombination keys, const QString& /*description*/,
                                                                  std::function<void()> pressed)
{
    Grab wanted{ keys, std::make_shared<const std::function<void()>>(std::move(pressed)), {}, {}, false, false };
    if (m_connection) {
        wanted.keys = keysOf(keys.key());
        wanted.states = statesOf(keys.keyboardModifiers());
    }
    wanted.isOwn = m_connection && grab(wanted);
    // Key events that arrived during the requests are in the connection's queue, and its socket does not signal them
    // again.
    QMetaObject::invokeMethod(this, &X11GlobalShortcuts::readEvents, Qt::QueuedConnection);
    const std::uint32_t number = ++m_lastNumber;
    if (number == firstNumber)
        m_wantedKeys = catalogueNames(keys);
    if (!wanted.isOwn) {
        const bool mayBeHeld = !m_connection || wanted.isOnKeyboard();
        logLine((mayBeHeld ? QStringLiteral("another program may hold the shortcut %1")
                           : QStringLiteral("this keyboard has no keys for the shortcut %1"))
                    .arg(catalogueNames(keys)));
        // A keyboard that comes later may have the keys.
        if (mayBeHeld) {
            m_refusals.emplace(number, refusal(wanted));
            return nullptr;
        }
    }
    m_grabs.insert_or_assign(number, std::move(wanted));
    return std::make_unique<Cancellable>(m_lifetime.guarded([this, number] { unregister(number); }));
}

void X11GlobalShortcuts::unregister(std::uint32_t number)
{
    if (const auto found = m_grabs.find(number); found != m_grabs.end()) {
        ungrab(found->second);
        m_grabs.erase(found);
    }
}

const X11GlobalShortcuts::Grab* X11GlobalShortcuts::firstGrab() const
{
    const auto first = m_grabs.find(firstNumber);
    return first == m_grabs.end() ? nullptr : &first->second;
}

QString X11GlobalShortcuts::boundKeys() const
{
    const auto bound = boundCombination();
    return bound ? catalogueNames(*bound) : QString();
}

std::optional<QKeyCombination> X11GlobalShortcuts::boundCombination() const
{
    const Grab* first = firstGrab();
    return first && first->isOwn ? std::optional(first->combination) : std::nullopt;
}

QString X11GlobalShortcuts::obstacle() const
{
    std::map<std::uint32_t, QString> refusals = m_refusals;
    for (const auto& [number, grab] : m_grabs) {
        if (!grab.isOwn)
            refusals.emplace(number, refusal(grab));
    }
    QStringList lines;
    for (const auto& [number, text] : refusals)
        lines.append(text);
    return lines.join(QLatin1Char('\n'));
}

QString X11GlobalShortcuts::catalogueNames(QKeyCombination keys) const
{
    const Qt::KeyboardModifiers held = keys.keyboardModifiers();
    QStringList names;
    if (held.testFlag(Qt::ControlModifier))
        names.append(tr("Ctrl"));
    if (held.testFlag(Qt::AltModifier))
        names.append(tr("Alt"));
    if (held.testFlag(Qt::ShiftModifier))
        names.append(tr("Shift"));
    if (held.testFlag(Qt::MetaModifier))
        names.append(tr("Super"));
    names.append(QKeySequence(keys.key()).toString(QKeySequence::NativeText));
    return names.join(QLatin1Char('+'));
}

QString X11GlobalShortcuts::refusal(const Grab& grab) const
{
    const QString keys = catalogueNames(grab.combination);
    return grab.isOnKeyboard() ? tr("Another program may hold %1.").arg(keys)
                               : tr("This keyboard has no %1.").arg(keys);
}

std::vector<xcb_keycode_t> X11GlobalShortcuts::keysOf(Qt::Key key) const
{
    const std::optional<X11Key> known = x11Key(key);
    if (!known)
        return {};
    std::vector<xcb_keycode_t> keys;
    const auto found = owned(xcb_key_symbols_get_keycode(m_symbols.get(), known->symbol));
    for (const xcb_keycode_t* code = found.get(); code && *code != XCB_NO_SYMBOL; ++code)
        keys.push_back(*code);
    if (keys.empty() && known->place != 0)
        keys.push_back(known->place);
    return keys;
}

std::uint16_t X11GlobalShortcuts::modifierOf(xcb_keysym_t keysym) const
{
    const auto keys = owned(xcb_key_symbols_get_keycode(m_symbols.get(), keysym));
    const auto cookie = xcb_get_modifier_mapping(m_connection.get());
    const auto mapping = owned(xcb_get_modifier_mapping_reply(m_connection.get(), cookie, nullptr));
    if (!keys || !mapping)
        return 0;
    const xcb_keycode_t* codes = xcb_get_modifier_mapping_keycodes(mapping.get());
    const int count = xcb_get_modifier_mapping_keycodes_length(mapping.get());
    for (int index = 0; index < count; ++index) {
        for (const xcb_keycode_t* key = keys.get(); *key != XCB_NO_SYMBOL; ++key) {
            if (codes[index] == *key)
                return static_cast<std::uint16_t>(1U << (index / mapping->keycodes_per_modifier));
        }
    }
    return 0;
}

std::optional<std::uint16_t> X11GlobalShortcuts::modifierMask(Qt::KeyboardModifiers modifiers) const
{
    std::uint16_t mask = 0;
    bool isComplete = true;
    const auto add = [&](Qt::KeyboardModifier modifier, std::uint16_t bit) {
        if (!modifiers.testFlag(modifier))
            return;
        mask = static_cast<std::uint16_t>(mask | bit);
        isComplete = isComplete && bit != 0;
    };
    add(Qt::ShiftModifier, XCB_MOD_MASK_SHIFT);
    add(Qt::ControlModifier, XCB_MOD_MASK_CONTROL);
    add(Qt::AltModifier, modifierOf(altSymbol));
    add(Qt::MetaModifier, modifierOf(superSymbol));
    return isComplete ? std::optional(mask) : std::nullopt;
}

// A grab applies to one exact state of all modifiers, and the lock keys count as modifiers.
std::vector<std::uint16_t> X11GlobalShortcuts::statesOf(Qt::KeyboardModifiers modifiers) const
{
    const std::optional<std::uint16_t> mask = modifierMask(modifiers);
    if (!mask)
        return {};
    const std::uint16_t numLock = modifierOf(numLockSymbol);
    std::vector<std::uint16_t> states;
    for (const std::uint32_t locks : { 0U, 0U | XCB_MOD_MASK_LOCK, 0U | numLock, 0U | XCB_MOD_MASK_LOCK | numLock }) {
        const auto state = static_cast<std::uint16_t>(*mask | locks);
        if (std::find(states.begin(), states.end(), state) == states.end())
            states.push_back(state);
    }
    return states;
}

bool X11GlobalShortcuts::grab(const Grab& grab)
{
    bool isOwn = grab.isOnKeyboard();
    for (const xcb_keycode_t key : grab.keys) {
        for (const std::uint16_t state : grab.states) {
            const auto cookie = xcb_grab_key_checked(m_connection.get(), 0, m_root, state, key, XCB_GRAB_MODE_ASYNC,
                                                     XCB_GRAB_MODE_ASYNC);
            const auto error = owned(xcb_request_check(m_connection.get(), cookie));
            isOwn = isOwn && !error;
        }
    }
    if (!isOwn)
        ungrab(grab);
    return isOwn;
}

// Only with the modifiers of this grab: another shortcut may be the same key with other ones.
void X11GlobalShortcuts::ungrab(const Grab& grab)
{
    for (const xcb_keycode_t key : grab.keys) {
        for (const std::uint16_t state : grab.states)
            xcb_ungrab_key(m_connection.get(), key, m_root, state);
    }
    xcb_flush(m_connection.get());
}

void X11GlobalShortcuts::readEvents()
{
    if (!m_connection)
        return;
    while (const auto event = owned(xcb_poll_for_event(m_connection.get())))
        handle(*event);
    if (xcb_connection_has_error(m_connection.get()) != 0)
        m_notifier->setEnabled(false);
}

void X11GlobalShortcuts::handle(const xcb_generic_event_t& event)
{
    switch (event.response_type & 0x7f) {
    case XCB_KEY_PRESS:
        keyPressed(reinterpret_cast<const xcb_key_press_event_t&>(event));
        break;
    case XCB_KEY_RELEASE:
        keyReleased(reinterpret_cast<const xcb_key_release_event_t&>(event));
        break;
    case XCB_MAPPING_NOTIFY:
        keyboardChanged(reinterpret_cast<const xcb_mapping_notify_event_t&>(event));
        break;
    default:
        break;
    }
}

void X11GlobalShortcuts::keyPressed(const xcb_key_press_event_t& event)
{
    // Without the bits for mouse buttons and keyboard groups.
    const auto state = static_cast<std::uint16_t>(event.state & allModifiers);
    std::vector<std::weak_ptr<const std::function<void()>>> pressed;
    for (auto& [number, grab] : m_grabs) {
        const bool isMeant = std::find(grab.states.begin(), grab.states.end(), state) != grab.states.end()
            && std::find(grab.keys.begin(), grab.keys.end(), event.detail) != grab.keys.end();
        if (isMeant && !std::exchange(grab.isDown, true))
            pressed.push_back(grab.pressed);
    }
    // Each call may unregister its own shortcut and others.
    for (const auto& each : pressed) {
        if (const auto call = each.lock())
            (*call)();
    }
}

// For the auto-repeat of a held key, the server sends a release and a press with the same timestamp.
void X11GlobalShortcuts::keyReleased(const xcb_key_release_event_t& event)
{
    const auto next = owned(xcb_poll_for_event(m_connection.get()));
    const auto* press = reinterpret_cast<const xcb_key_press_event_t*>(next.get());
    const bool isRepetition = press && (press->response_type & 0x7f) == XCB_KEY_PRESS && press->detail == event.detail
        && press->time == event.time;
    if (isRepetition)
        return;
    for (auto& [number, grab] : m_grabs) {
        if (std::find(grab.keys.begin(), grab.keys.end(), event.detail) != grab.keys.end())
            grab.isDown = false;
    }
    if (next)
        handle(*next);
}

// The server sends this whenever the user switches to another keyboard, while its first keys are pressed. A shortcut
// that is the same on both keyboards must stay grabbed then.
void X11GlobalShortcuts::keyboardChanged(xcb_mapping_notify_event_t event)
{
    if (event.request == XCB_MAPPING_POINTER)
        return;
    xcb_refresh_keyboard_mapping(m_symbols.get(), &event);
    bool isChanged = false;
    for (auto& [number, each] : m_grabs) {
        auto keys = keysOf(each.combination.key());
        auto states = statesOf(each.combination.keyboardModifiers());
        if (keys == each.keys && states == each.states)
            continue;
        ungrab(each);
        each.keys = std::move(keys);
        each.states = std::move(states);
        const bool wasOwn = std::exchange(each.isOwn, grab(each));
        isChanged = isChanged || wasOwn != each.isOwn;
    }
    if (isChanged)
        Q_EMIT changed();
}

} // namespace nookle
