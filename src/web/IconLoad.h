#pragma once

#include "Lifetime.h"
#include "LookupProtocol.h"

#include <QByteArray>
#include <QList>

#include <functional>
#include <memory>
#include <optional>

namespace nookle {

class Cancellable;
class ImageConverter;
class MainQueue;

/// Loads the icon of one page as PNG, from the first place that has a usable one.
class IconLoad final {
public:
    /// In seconds.
    inline static constexpr double longestConversion = 10;
    inline static constexpr int maximumSide = 2048;

    struct Services {
        /// Starts a lookup. Its callback is called once, after the call has returned.
        std::function<void(LookupRequest, std::function<void(std::optional<LookupReply>)>)> lookUp;
        ImageConverter& converter;
        MainQueue& queue;
    };

    using Completion = std::function<void(std::optional<QByteArray> png)>;

    /// Tries the places of `page`. `completion` is called once, after this call has returned, with none when there is
    /// no icon. It may destroy this object, and is not called after its destruction.
    IconLoad(Services services, const LookupReply& page, Completion completion);
    ~IconLoad();
    IconLoad(const IconLoad&) = delete;
    IconLoad& operator=(const IconLoad&) = delete;

private:
    void tryNextPlace();
    void takeReply(const std::optional<LookupReply>& reply);
    void convert(const QByteArray& bytes);
    void takePng(std::optional<QByteArray> png);
    void finish(std::optional<QByteArray> png);

    Services m_services;
    QList<IconPlace> m_places;
    WebReach m_from;
    Completion m_completion;
    std::unique_ptr<Cancellable> m_conversion;
    std::unique_ptr<Cancellable> m_limit;
    Lifetime m_lifetime;
};

} // namespace nookle
