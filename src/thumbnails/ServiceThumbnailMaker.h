#pragma once

#include "ThumbnailMaker.h"

#include <QDBusConnection>

namespace nookle {

class MainQueue;

/// Makes thumbnails with the session's thumbnailer service, if it is running or can be started. The service saves them
/// in the shared thumbnail folder.
class ServiceThumbnailMaker final : public ThumbnailMaker {
public:
    /// In seconds.
    inline static constexpr double timeout = 20;

    ServiceThumbnailMaker(MainQueue& queue, QDBusConnection bus);

    std::unique_ptr<Cancellable> make(const Wanted& wanted, Completion completion) override;

private:
    MainQueue& m_queue;
    QDBusConnection m_bus;
};

} // namespace nookle
