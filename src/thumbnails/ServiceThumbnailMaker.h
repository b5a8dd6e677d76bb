#pragma once

#include "ThumbnailMaker.h"

#include <QDBusConnection>

namespace nookle {

class MainQueue;

/// The session's thumbnailer service, if it is running or can be started. It saves what it makes where all programs
/// share their thumbnails.
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
