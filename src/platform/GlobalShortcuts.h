#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace nookle {

/// A key with the keys that are held with it, in numbers of the program's own: key code 2 is "D"; a modifier is 256
/// (Super), 512 (Shift), 2048 (Alt) or 4096 (Control), and a mask is their sum.
struct Shortcut {
    std::uint32_t keyCode = 0;
    std::uint32_t modifiers = 0;

    bool operator==(const Shortcut&) const = default;
};

/// What a registered shortcut is known by when it is pressed.
struct ShortcutId {
    std::uint32_t signature = 0;
    std::uint32_t id = 0;

    bool operator==(const ShortcutId&) const = default;
};

/// A shortcut that is registered, or a handler that is installed, for as long as this lives.
class ShortcutRegistration {
public:
    virtual ~ShortcutRegistration() = default;
};

/// Keys that reach this program whichever program is active. Main thread only.
class GlobalShortcuts {
public:
    /// Is told of each press of each shortcut; true when it was meant for this handler.
    using Handler = std::function<bool(ShortcutId)>;

    virtual ~GlobalShortcuts() = default;

    /// Handlers are asked in the order of their installation until one says that the press was its own. A key that is
    /// held down is one press.
    [[nodiscard]] virtual std::unique_ptr<ShortcutRegistration> installHandler(Handler handler) = 0;

    /// Null when the key is unknown, or another program holds it.
    [[nodiscard]] virtual std::unique_ptr<ShortcutRegistration> registerShortcut(Shortcut shortcut, ShortcutId id) = 0;
};

} // namespace nookle
