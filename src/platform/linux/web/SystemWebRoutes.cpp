#include "SystemWebRoutes.h"

#include "AddressRules.h"
#include "MainQueue.h"

#include <QHostInfo>
#include <QNetworkProxyFactory>
#include <QNetworkProxyQuery>
#include <QObject>
#include <QThreadPool>

#include <mutex>
#include <utility>

namespace nookle {

/// Passes work to the main queue, as long as there is anybody who waits for it.
class SystemWebRoutes::Mailbox {
public:
    explicit Mailbox(MainQueue& queue)
        : m_queue(&queue)
    {
    }

    void post(MainQueue::Work work)
    {
        const std::lock_guard lock(m_mutex);
        if (m_queue)
            m_queue->post(std::move(work));
    }

    void close()
    {
        const std::lock_guard lock(m_mutex);
        m_queue = nullptr;
    }

private:
    std::mutex m_mutex;
    MainQueue* m_queue;
};

namespace {

[[nodiscard]] WebRoute directRoute(const QList<QHostAddress>& addresses)
{
    WebRoute route;
    route.addresses = addressesOfOneReach(addresses);
    route.reach = reachOf(route.addresses.constFirst());
    return route;
}

[[nodiscard]] WebRoute proxyRoute(const QNetworkProxy& proxy, const QString& host)
{
    WebRoute route;
    route.proxy = proxy;
    route.reach = reachOfName(host);
    return route;
}

/// Asks for the proxy and, when there is none, for the addresses.
class RouteSearch final : public WebRouteRequest {
public:
    RouteSearch(QUrl url, WebRoutes::Completion completion)
        : m_url(std::move(url))
        , m_completion(std::make_shared<WebRoutes::Completion>(std::move(completion)))
        , m_self(std::make_shared<RouteSearch*>(this))
    {
    }

    void start(const std::shared_ptr<SystemWebRoutes::Mailbox>& mailbox)
    {
        if (isThisComputer(m_url.host())) {
            mailbox->post([weak = std::weak_ptr(m_self)] {
                if (const auto self = weak.lock())
                    (*self)->lookUp();
            });
            return;
        }
        // A proxy's configuration may be a script on another computer: the main thread does not wait for it.
        QThreadPool::globalInstance()->start([url = m_url, mailbox, weak = std::weak_ptr(m_self)] {
            const QList<QNetworkProxy> proxies = QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(url));
            mailbox->post([weak, proxy = proxies.value(0, QNetworkProxy::NoProxy)] {
                if (const auto self = weak.lock())
                    (*self)->takeProxy(proxy);
            });
        });
    }

private:
    void takeProxy(const QNetworkProxy& proxy)
    {
        if (proxy.type() == QNetworkProxy::NoProxy || proxy.type() == QNetworkProxy::DefaultProxy)
            lookUp();
        else
            finish(proxyRoute(proxy, m_url.host()));
    }

    void lookUp()
    {
        QHostInfo::lookupHost(m_url.host(QUrl::FullyEncoded), &m_context, [this](const QHostInfo& found) {
            if (found.addresses().isEmpty())
                finish(std::nullopt);
            else
                finish(directRoute(found.addresses()));
        });
    }

    void finish(std::optional<WebRoute> route)
    {
        // Held here while it runs, because it may destroy this search.
        const std::shared_ptr<WebRoutes::Completion> completion = m_completion;
        (*completion)(std::move(route));
    }

    QUrl m_url;
    std::shared_ptr<WebRoutes::Completion> m_completion;
    QObject m_context;
    /// Expires with this object, for answers that are still on their way then.
    std::shared_ptr<RouteSearch*> m_self;
};

} // namespace

SystemWebRoutes::SystemWebRoutes(MainQueue& queue)
    : m_mailbox(std::make_shared<Mailbox>(queue))
{
}

SystemWebRoutes::~SystemWebRoutes()
{
    m_mailbox->close();
}

std::unique_ptr<WebRouteRequest> SystemWebRoutes::find(const QUrl& url, Completion completion)
{
    auto search = std::make_unique<RouteSearch>(url, std::move(completion));
    search->start(m_mailbox);
    return search;
}

} // namespace nookle
