#pragma once

#include "WebJob.h"
#include "WebReach.h"
#include "WebTransfer.h"

#include <QByteArray>
#include <QList>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

namespace nookle {

class DelayedTask;
class ImageConversion;
class ImageConverter;
class MainQueue;
class WebRoutes;

/// Fetches the icon of one page from the first place that has one, as PNG.
class IconLoad final : public WebJob {
public:
    inline static constexpr double timeLimit = 10;
    inline static constexpr qint64 maximumBytes = 524'288;
    inline static constexpr int maximumSide = 2048;

    struct Services {
        WebRoutes& routes;
        ImageConverter& converter;
        MainQueue& queue;
    };

    /// `from` is where the page stands that names these places.
    IconLoad(const Services& services, QList<QUrl> places, WebReach from);
    ~IconLoad() override;
    IconLoad(const IconLoad&) = delete;
    IconLoad& operator=(const IconLoad&) = delete;

    void start() override;

    /// Called once, with nothing when there is no icon. May destroy the load. Set by the owner.
    std::function<void(std::optional<QByteArray> png)> onEnd;

private:
    void tryNextPlace();
    void fetch(const QUrl& url);
    void takeEnd(WebTransfer::End end);
    void convert(const QByteArray& bytes);
    void takePng(std::optional<QByteArray> png);
    void finish(std::optional<QByteArray> png);

    Services m_services;
    QList<QUrl> m_places;
    WebReach m_from;
    QByteArray m_bytes;
    std::unique_ptr<WebTransfer> m_transfer;
    std::unique_ptr<ImageConversion> m_conversion;
    std::unique_ptr<DelayedTask> m_limit;
    /// Expires with this object, for what is still in the queue then.
    std::shared_ptr<IconLoad*> m_self;
};

} // namespace nookle
