#pragma once

#include "GlobalShortcuts.h"
#include "ShortcutHandlers.h"

#include <map>
#include <utility>

namespace nookle {

/// Shortcuts that are pressed when a test says so.
class FakeGlobalShortcuts final : public GlobalShortcuts {
public:
    std::unique_ptr<ShortcutRegistration> installHandler(Handler handler) override
    {
        return m_handlers.install(std::move(handler));
    }

    std::unique_ptr<ShortcutRegistration> registerShortcut(Shortcut shortcut, ShortcutId id) override
    {
        if (refuses)
            return nullptr;
        registered.insert_or_assign(id.id, std::pair(shortcut, id));
        return std::make_unique<Registration>(*this, id.id);
    }

    /// Whether a handler took the press.
    bool press(ShortcutId id) { return m_handlers.press(id); }

    bool refuses = false;
    std::map<std::uint32_t, std::pair<Shortcut, ShortcutId>> registered;

private:
    class Registration final : public ShortcutRegistration {
    public:
        Registration(FakeGlobalShortcuts& shortcuts, std::uint32_t id)
            : m_shortcuts(shortcuts)
            , m_id(id)
        {
        }
        ~Registration() override { m_shortcuts.registered.erase(m_id); }
        Registration(const Registration&) = delete;
        Registration& operator=(const Registration&) = delete;

    private:
        FakeGlobalShortcuts& m_shortcuts;
        std::uint32_t m_id;
    };

    ShortcutHandlers m_handlers;
};

} // namespace nookle
