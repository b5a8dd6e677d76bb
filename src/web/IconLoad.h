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

/// Gets the icon of one page from the first place that has one, as PNG.
class IconLoad final {
public:
    /// In seconds.
    inline static constexpr double longestConversion = 10;
    inline static constexpr int maximumSide = 2048;

    struct Services {
        /// Looks something up, calling back once and never inside the call.
        std::function<void(LookupRequest, std::function<void(std::optional<LookupReply>)>)> lookUp;
        ImageConverter& converter;
        MainQueue& queue;
    };

    using Completion = std::function<void(std::optional<QByteArray> png)>;

    /// Takes the places of `page`. `completion` is called once, with nothing when there is no icon, never inside this
    /// call or after the end of this object, which it may bring about.
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
