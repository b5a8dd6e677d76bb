#pragma once

#include "GlobalShortcuts.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace nookle {

/// One shortcut for the whole desktop, registered as long as this object lives. Main thread only.
class HotKey final {
public:
    /// "NOOK".
    static constexpr std::uint32_t signature = 0x4e4f4f4b;

    /// Runs `action` at every press. Where the shortcut cannot be registered it never does. `shortcuts` must outlive
    /// this object.
    HotKey(GlobalShortcuts& shortcuts, std::uint32_t keyCode, std::uint32_t modifiers, std::function<void()> action);

    /// This registration's number, unique within the program and counted from 1.
    [[nodiscard]] std::uint32_t id() const { return m_id; }

private:
    static std::uint32_t takeId();
    [[nodiscard]] bool handle(ShortcutId pressed) const;

    inline static std::uint32_t nextID = 1;

    std::uint32_t m_id;
    std::function<void()> m_action;
    std::unique_ptr<ShortcutRegistration> m_handler;
    std::unique_ptr<ShortcutRegistration> m_hotKey;
};

} // namespace nookle
