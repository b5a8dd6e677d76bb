#pragma once

#include "GlobalShortcuts.h"

#include <QKeyCombination>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>

namespace nookle {

/// One shortcut for the whole desktop, registered as long as this object lives. Main thread only.
class HotKey final {
public:
    /// Key code 2 is "D"; `modifiers` is the sum of 256 (Super), 512 (Shift), 2048 (Alt) and 4096 (Control).
    [[nodiscard]] static QKeyCombination keys(std::uint32_t keyCode, std::uint32_t modifiers);

    /// Runs `action` at every press of `keys`. `description` tells the user what they do. If the shortcut cannot be
    /// registered, `action` never runs. `shortcuts` must outlive this object.
    HotKey(GlobalShortcuts& shortcuts, QKeyCombination keys, const QString& description, std::function<void()> action);

    /// This shortcut's number, unique within the program and counted from 1.
    [[nodiscard]] std::uint32_t id() const { return m_id; }

private:
    static std::uint32_t takeId();

    inline static std::uint32_t nextID = 1;

    std::uint32_t m_id;
    std::unique_ptr<Cancellable> m_hotKey;
};

} // namespace nookle
