#pragma once

#include "WebReach.h"

#include <QHostAddress>
#include <QList>
#include <QNetworkProxy>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

namespace nookle {

/// How a host is reached, and where it stands.
struct WebRoute {
    /// NoProxy when the host is connected to directly.
    QNetworkProxy proxy{ QNetworkProxy::NoProxy };
    /// What to connect to, best first. Empty when a proxy looks the name up.
    QList<QHostAddress> addresses;
    WebReach reach = WebReach::publicNetwork;
};

/// A search for a route. Destroying it cancels it: its completion is not called any more.
class WebRouteRequest {
public:
    virtual ~WebRouteRequest() = default;
};

/// Finds out how to reach hosts, before anything connects to them. Main thread only.
class WebRoutes {
public:
    using Completion = std::function<void(std::optional<WebRoute>)>;

    virtual ~WebRoutes() = default;

    /// Finds the way to the host of `url`. `completion` is called once, on the main thread and after this call has
    /// returned; nothing means that the host is not known. The request may be destroyed from within its completion.
    [[nodiscard]] virtual std::unique_ptr<WebRouteRequest> find(const QUrl& url, Completion completion) = 0;
};

} // namespace nookle
