#pragma once

#include "MainQueue.h"
#include "WebRoutes.h"

#include <QHash>
#include <QStringList>

#include <memory>
#include <utility>

namespace nookle {

/// Routes to names that a test has made up. They stand wherever the test says, whatever their address is.
class FakeWebRoutes final : public WebRoutes {
public:
    explicit FakeWebRoutes(MainQueue& queue)
        : m_queue(queue)
    {
    }

    void add(const char* host, const WebRoute& route) { m_routes.insert(QString::fromLatin1(host), route); }

    void add(const char* host, WebReach reach, const QHostAddress& address = QHostAddress(QHostAddress::LocalHost))
    {
        WebRoute route;
        route.addresses = { address };
        route.reach = reach;
        add(host, route);
    }

    std::unique_ptr<WebRouteRequest> find(const QUrl& url, Completion completion) override
    {
        asked.append(url.host());
        auto request = std::make_unique<Request>(std::move(completion));
        std::optional<WebRoute> route;
        if (m_routes.contains(url.host()))
            route = m_routes.value(url.host());
        m_queue.post([weak = std::weak_ptr(request->completion), route] {
            if (const auto call = weak.lock())
                (*call)(route);
        });
        return request;
    }

    /// The hosts that were looked for.
    QStringList asked;

private:
    struct Request final : WebRouteRequest {
        explicit Request(Completion work)
            : completion(std::make_shared<Completion>(std::move(work)))
        {
        }
        std::shared_ptr<Completion> completion;
    };

    MainQueue& m_queue;
    QHash<QString, WebRoute> m_routes;
};

} // namespace nookle
