#include "PageLookup.h"

#include "ContentSniffing.h"
#include "MainQueue.h"
#include "PageHead.h"
#include "PageIcons.h"

#include <utility>

namespace nookle {

PageLookup::PageLookup(WebRoutes& routes, MainQueue& queue, const QUrl& url)
    : m_queue(queue)
    , m_transfer(routes, queue,
                 WebTransfer::Wish{ url, WebReach::privateNetwork, "text/html,application/xhtml+xml;q=0.9,*/*;q=0.1",
                                    maximumBytes })
{
    m_transfer.onResponse = [this](const WebResponse& response) { return takeResponse(response); };
    m_transfer.onData = [this](const QByteArray& bytes) { return takeData(bytes); };
    m_transfer.onEnd = [this](WebTransfer::End end) { takeEnd(end); };
}

PageLookup::~PageLookup() = default;

void PageLookup::start()
{
    m_limit = m_queue.after(timeLimit, [this] { finish(std::nullopt); });
    m_transfer.start();
}

bool PageLookup::takeResponse(const WebResponse& response)
{
    m_response = response;
    const std::optional<bool> isPage = isPageType(response.contentType);
    m_isSniffing = !isPage;
    if (isPage.value_or(true))
        m_head = std::make_unique<PageHead>(response.contentType);
    return m_head != nullptr;
}

bool PageLookup::takeData(const QByteArray& bytes)
{
    if (m_isSniffing) {
        m_beginning.append(bytes);
        return sniff(false);
    }
    m_head->feed(bytes);
    return !m_head->isOver();
}

bool PageLookup::sniff(bool isAll)
{
    if (!isAll && m_beginning.size() < sniffedBytes)
        return true;
    m_isSniffing = false;
    if (!looksLikePage(m_beginning.left(sniffedBytes))) {
        m_head.reset();
        return false;
    }
    m_head->feed(std::exchange(m_beginning, {}));
    return !m_head->isOver();
}

void PageLookup::takeEnd(WebTransfer::End end)
{
    if (end == WebTransfer::End::failed)
        return finish(std::nullopt);
    if (m_isSniffing)
        static_cast<void>(sniff(true));
    PageFacts facts;
    facts.reach = m_response.reach;
    if (m_head) {
        m_head->finish();
        facts.title = m_head->title();
        facts.iconPlaces = iconPlaces(m_response.url, m_head->baseHref(), m_head->icons());
    }
    finish(std::move(facts));
}

void PageLookup::finish(std::optional<PageFacts> facts)
{
    const auto done = std::exchange(onEnd, nullptr);
    if (done)
        done(std::move(facts));
}

} // namespace nookle
