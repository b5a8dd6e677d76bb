#pragma once

#include "WebJob.h"
#include "WebReach.h"
#include "WebTransfer.h"

#include <QList>
#include <QString>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

namespace nookle {

class DelayedTask;
class MainQueue;
class PageHead;
class WebRoutes;

/// What a lookup has found out about an address.
struct PageFacts {
    std::optional<QString> title;
    /// Where its icon may be, the best place first. Empty for what is no page.
    QList<QUrl> iconPlaces;
    /// Where the page stands, and so what its icon may be fetched from.
    WebReach reach = WebReach::publicNetwork;
};

/// Reads the head of one page. An address with something else than a page behind it is found, and has no title.
class PageLookup final : public WebJob {
public:
    inline static constexpr double timeLimit = 10;
    inline static constexpr qint64 maximumBytes = 1'048'576;

    PageLookup(WebRoutes& routes, MainQueue& queue, const QUrl& url);
    ~PageLookup() override;
    PageLookup(const PageLookup&) = delete;
    PageLookup& operator=(const PageLookup&) = delete;

    void start() override;

    /// Called once, with nothing when the lookup failed. May destroy the lookup. Set by the owner.
    std::function<void(std::optional<PageFacts>)> onEnd;

private:
    [[nodiscard]] bool takeResponse(const WebResponse& response);
    [[nodiscard]] bool takeData(const QByteArray& bytes);
    /// False when the first bytes are not those of a page.
    [[nodiscard]] bool sniff(bool isAll);
    void takeEnd(WebTransfer::End end);
    void finish(std::optional<PageFacts> facts);

    MainQueue& m_queue;
    WebTransfer m_transfer;
    std::unique_ptr<DelayedTask> m_limit;
    WebResponse m_response;
    /// The first bytes of what does not say its type.
    QByteArray m_beginning;
    bool m_isSniffing = false;
    /// While it is, or may be, a page.
    std::unique_ptr<PageHead> m_head;
};

} // namespace nookle
