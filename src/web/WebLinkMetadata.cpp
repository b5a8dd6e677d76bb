#include "WebLinkMetadata.h"

#include "IconLoad.h"
#include "Log.h"
#include "MainQueue.h"

#include <QFileInfo>

#include <utility>

namespace nookle {

namespace {

[[nodiscard]] bool isWebAddress(const QUrl& url)
{
    return url.isValid() && !url.host().isEmpty()
        && (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"));
}

} // namespace

WebLinkMetadata::WebLinkMetadata(QString program, ImageConverter& converter, MainQueue& queue, Confinement confinement)
    : m_program(std::move(program))
    , m_converter(converter)
    , m_queue(queue)
{
    for (auto& helper : m_helpers) {
        helper = std::make_unique<LookupHelper>(queue, m_program, confinement);
        helper->onNoStart = [this] { tellOfNoStart(); };
    }
}

WebLinkMetadata::~WebLinkMetadata() = default;

std::unique_ptr<Cancellable> WebLinkMetadata::start(const QUrl& url, Completion completion)
{
    QByteArray address;
    if (isWebAddress(url))
        address = url.toEncoded(QUrl::RemoveUserInfo | QUrl::RemoveFragment);
    const Id id = add(LookupRequest{ LookupRequest::Purpose::page, address, WebReach::privateNetwork },
                      [this, completion = std::move(completion)](const std::optional<LookupReply>& reply) {
                          const bool isFound = reply && reply->isFound;
                          completion(isFound ? std::optional(metadata(*reply)) : std::nullopt);
                      });
    return std::make_unique<Cancellable>(m_lifetime.guarded([this, id] { remove(id); }));
}

QList<qint64> WebLinkMetadata::processIds() const
{
    QList<qint64> ids;
    for (const auto& helper : m_helpers) {
        if (helper->processId() != 0)
            ids.append(helper->processId());
    }
    return ids;
}

WebLinkMetadata::Id WebLinkMetadata::add(LookupRequest request, LookupHelper::Completion completion)
{
    const Id id = ++m_lastId;
    if (canLookUp(request)) {
        m_waiting.emplace(id, Job{ std::move(request), std::move(completion) });
        m_queue.post(m_lifetime.guarded([this] { startNext(); }));
    } else {
        m_running.emplace(id, Job{ std::move(request), std::move(completion) });
        m_queue.post(m_lifetime.guarded([this, id] { finish(id, std::nullopt); }));
    }
    return id;
}

bool WebLinkMetadata::canLookUp(const LookupRequest& request)
{
    if (request.url.isEmpty() || request.url.size() > LookupRequest::longestUrl)
        return false;
    // Checked here, before processes are started that can only fail.
    const bool hasProgram = QFileInfo(m_program).isExecutable();
    if (!hasProgram)
        tellOfNoStart();
    return hasProgram;
}

void WebLinkMetadata::remove(Id id)
{
    m_waiting.erase(id);
    const auto job = m_running.extract(id);
    if (job && job.mapped().helper) {
        job.mapped().helper->drop();
        startNext();
    }
}

void WebLinkMetadata::startNext()
{
    for (const auto& helper : m_helpers) {
        if (m_waiting.empty())
            return;
        if (!helper->isFree())
            continue;
        const auto job = m_running.insert(m_waiting.extract(m_waiting.begin())).position;
        job->second.helper = helper.get();
        helper->ask(std::move(job->second.request),
                    [this, id = job->first](std::optional<LookupReply> reply) { finish(id, std::move(reply)); });
    }
}

void WebLinkMetadata::finish(Id id, std::optional<LookupReply> reply)
{
    const auto job = m_running.extract(id);
    startNext();
    // Called last, because it may destroy this object.
    if (job)
        job.mapped().completion(std::move(reply));
}

void WebLinkMetadata::tellOfNoStart()
{
    if (!std::exchange(m_hasToldOfNoStart, true))
        logLine(QStringLiteral("linked pages are not looked up, their helper does not start: %1").arg(m_program));
}

LinkMetadata WebLinkMetadata::metadata(const LookupReply& page)
{
    LinkMetadata found{ page.title, nullptr };
    if (page.places.isEmpty())
        return found;
    found.loadIcon =
        m_lifetime.guarded([this, page](IconCompletion completion) { loadIcon(page, std::move(completion)); });
    return found;
}

void WebLinkMetadata::loadIcon(const LookupReply& page, IconCompletion completion)
{
    const Id id = ++m_lastId;
    const IconLoad::Services services{ [this](LookupRequest request, LookupHelper::Completion done) {
                                          add(std::move(request), std::move(done));
                                      },
                                       m_converter, m_queue };
    m_icons.emplace(id,
                    std::make_unique<IconLoad>(
                        services, page, [this, id, completion = std::move(completion)](std::optional<QByteArray> png) {
                            m_icons.erase(id);
                            completion(std::move(png));
                        }));
}

} // namespace nookle
