#include "ServiceThumbnailMaker.h"

#include "ServiceThumbnailing.h"

#include <utility>

namespace nookle {

ServiceThumbnailMaker::ServiceThumbnailMaker(MainQueue& queue, QDBusConnection bus)
    : m_queue(queue)
    , m_bus(std::move(bus))
{
}

std::unique_ptr<Cancellable> ServiceThumbnailMaker::make(const Wanted& wanted, Completion completion)
{
    if (!m_bus.isConnected())
        return nullptr;
    return Cancellable::keeping(
        std::make_shared<ServiceThumbnailing>(m_queue, m_bus, wanted, longestMaking, std::move(completion)));
}

} // namespace nookle
