#include "ServiceThumbnailMaker.h"

#include "ThumbnailerRequest.h"

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
        std::make_shared<ThumbnailerRequest>(m_queue, m_bus, wanted, timeout, std::move(completion)));
}

} // namespace nookle
