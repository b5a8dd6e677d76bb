#include "HandlerList.h"

#include <algorithm>
#include <utility>

namespace nookle {

std::unique_ptr<Cancellable> HandlerList::add(Handler handler)
{
    auto shared = std::make_shared<Handler>(std::move(handler));
    m_handlers.push_back(shared);
    return Cancellable::keeping(std::move(shared));
}

void HandlerList::call()
{
    std::erase_if(m_handlers, [](const std::weak_ptr<Handler>& handler) { return handler.expired(); });
    const auto present = m_handlers;
    for (const auto& each : present) {
        if (const auto handler = each.lock())
            (*handler)();
    }
}

bool HandlerList::isEmpty() const
{
    return std::all_of(m_handlers.begin(), m_handlers.end(),
                       [](const std::weak_ptr<Handler>& handler) { return handler.expired(); });
}

} // namespace nookle
