#pragma once

#include "GlobalShortcuts.h"
#include "Lifetime.h"
#include "XcbConnection.h"

#include <QSocketNotifier>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include <xcb/xcb.h>
#include <xcb/xcb_keysyms.h>

namespace nookle {

/// Shortcuts as passive key grabs on the root window, on a connection of their own. They work with any lock keys on,
/// and adapt to a change of the keyboard layout. Main thread only.
class X11GlobalShortcuts final : public GlobalShortcuts {
    Q_OBJECT

public:
    /// Connects to the server that the environment names. Without a connection no shortcut can be registered.
    X11GlobalShortcuts();
    ~X11GlobalShortcuts() override;

    [[nodiscard]] std::unique_ptr<Cancellable> registerShortcut(QKeyCombination keys, const QString& description,
                                                                std::function<void()> pressed) override;
    [[nodiscard]] QString boundKeys() const override;
    [[nodiscard]] std::optional<QKeyCombination> boundCombination() const override;
    [[nodiscard]] QString wantedKeys() const override { return m_wantedKeys; }
    [[nodiscard]] QString obstacle() const override;
    /// Always false: an X server has nobody to ask.
    [[nodiscard]] bool canAskAgain() const override { return false; }
    void askAgain() override {}

private:
    struct Grab {
        /// Whether the keyboard has the key and all modifiers.
        [[nodiscard]] bool isOnKeyboard() const { return !keys.empty() && !states.empty(); }

        QKeyCombination combination;
        std::shared_ptr<const std::function<void()>> pressed;
        std::vector<xcb_keycode_t> keys;
        /// The modifier states: the shortcut's modifiers with every combination of lock keys.
        std::vector<std::uint16_t> states;
        /// False when another program has the keys. They may be free on the next keyboard layout.
        bool isOwn = false;
        /// True while the key is held down: further presses are its auto-repeat.
        bool isDown = false;
    };

    struct FreeSymbols {
        void operator()(xcb_key_symbols_t* symbols) const { xcb_key_symbols_free(symbols); }
    };

    void readEvents();
    void handle(const xcb_generic_event_t& event);
    void keyPressed(const xcb_key_press_event_t& event);
    void keyReleased(const xcb_key_release_event_t& event);
    void keyboardChanged(xcb_mapping_notify_event_t event);
    [[nodiscard]] bool grab(const Grab& grab);
    void ungrab(const Grab& grab);
    [[nodiscard]] const Grab* firstGrab() const;
    /// In the words of the program's own catalogue.
    [[nodiscard]] QString catalogueNames(QKeyCombination keys) const;
    [[nodiscard]] QString refusal(const Grab& grab) const;
    void unregister(std::uint32_t number);
    [[nodiscard]] std::uint16_t modifierOf(xcb_keysym_t keysym) const;
    /// None where the keyboard lacks one of the modifiers: a grab without it would take the bare key from all programs.
    [[nodiscard]] std::optional<std::uint16_t> modifierMask(Qt::KeyboardModifiers modifiers) const;
    [[nodiscard]] std::vector<std::uint16_t> statesOf(Qt::KeyboardModifiers modifiers) const;
    [[nodiscard]] std::vector<xcb_keycode_t> keysOf(Qt::Key key) const;

    XcbConnection m_connection;
    std::unique_ptr<xcb_key_symbols_t, FreeSymbols> m_symbols;
    xcb_window_t m_root = 0;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::uint32_t m_lastNumber = 0;
    QString m_wantedKeys;
    /// Why registrations failed, by their numbers.
    std::map<std::uint32_t, QString> m_refusals;
    std::map<std::uint32_t, Grab> m_grabs;
    Lifetime m_lifetime;
};

} // namespace nookle
