#pragma once

#include "WebRoutes.h"

#include <memory>

namespace nookle {

class MainQueue;

/// The system's proxies and its resolver. Behind a proxy no name is looked up here, as in a browser: the proxy does it,
/// and where the host stands is judged by its name alone.
class SystemWebRoutes final : public WebRoutes {
public:
    explicit SystemWebRoutes(MainQueue& queue);
    ~SystemWebRoutes() override;
    SystemWebRoutes(const SystemWebRoutes&) = delete;
    SystemWebRoutes& operator=(const SystemWebRoutes&) = delete;

    std::unique_ptr<WebRouteRequest> find(const QUrl& url, Completion completion) override;

    /// Where the threads that ask for proxies leave their answers.
    class Mailbox;

private:
    std::shared_ptr<Mailbox> m_mailbox;
};

} // namespace nookle
