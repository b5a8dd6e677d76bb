#include "ShortcutHandlers.h"

#include <utility>

namespace nookle {

class ShortcutHandlers::Registration final : public ShortcutRegistration {
public:
    explicit Registration(std::shared_ptr<GlobalShortcuts::Handler> handler)
        : m_handler(std::move(handler))
    {
    }

private:
    std::shared_ptr<GlobalShortcuts::Handler> m_handler;
};

std::unique_ptr<ShortcutRegistration> ShortcutHandlers::install(GlobalShortcuts::Handler handler)
{
    auto shared = std::make_shared<GlobalShortcuts::Handler>(std::move(handler));
    m_handlers.push_back(shared);
    return std::make_unique<Registration>(std::move(shared));
}

bool ShortcutHandlers::press(ShortcutId id)
{
    std::erase_if(m_handlers, [](const auto& handler) { return handler.expired(); });
    const auto current = m_handlers;
    for (const auto& each : current) {
        const auto handler = each.lock();
        if (handler && (*handler)(id))
            return true;
    }
    return false;
}

} // namespace nookle
