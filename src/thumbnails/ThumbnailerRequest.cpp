#include "ThumbnailerRequest.h"

#include "MainQueue.h"
#include "ThumbnailCache.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

namespace nookle {

namespace {

[[nodiscard]] QString objectPath()
{
    return QStringLiteral("/org/freedesktop/thumbnails/Thumbnailer1");
}

[[nodiscard]] QString interfaceName()
{
    return QStringLiteral("org.freedesktop.thumbnails.Thumbnailer1");
}

[[nodiscard]] QDBusMessage methodCall(const QString& method)
{
    // The service's name is the same as its interface's.
    return QDBusMessage::createMethodCall(interfaceName(), objectPath(), interfaceName(), method);
}

} // namespace

ThumbnailerRequest::ThumbnailerRequest(MainQueue& queue, QDBusConnection bus, const ThumbnailMaker::Wanted& wanted,
                                       double timeout, ThumbnailMaker::Completion completion)
    : m_queue(queue)
    , m_bus(std::move(bus))
    , m_uri(QString::fromLatin1(wanted.uri))
    , m_completion(std::move(completion))
{
    listen("Ready", SLOT(takeReady(uint, QStringList)));
    listen("Error", SLOT(takeError(uint, QStringList, int, QString)));
    listen("Finished", SLOT(takeFinished(uint)));
    queueRequest(wanted);
    m_limit = queue.after(timeout, [this] { finish(false); });
}

ThumbnailerRequest::~ThumbnailerRequest()
{
    if (m_isAnswered || !m_request)
        return;
    QDBusMessage call = methodCall(QStringLiteral("Dequeue"));
    call << *m_request;
    call.setAutoStartService(false);
    m_bus.send(call);
}

// Accepts the signal from any sender, because asking the bus for the service's owner would block. A forged signal only
// makes this program look for a missing thumbnail.
void ThumbnailerRequest::listen(const char* signal, const char* slot)
{
    m_bus.connect(QString(), objectPath(), interfaceName(), QLatin1String(signal), this, slot);
}

void ThumbnailerRequest::queueRequest(const ThumbnailMaker::Wanted& wanted)
{
    QDBusMessage call = methodCall(QStringLiteral("Queue"));
    call << QStringList{ m_uri } << QStringList{ wanted.mimeType };
    call << QString::fromLatin1(ThumbnailCache::sizeName(wanted.side)) << QStringLiteral("default") << 0U;
    auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] { takeAnswer(*watcher); });
}

void ThumbnailerRequest::takeAnswer(QDBusPendingCallWatcher& call)
{
    const QDBusPendingReply<uint> reply = call;
    if (reply.isError())
        finishSoon(false);
    else
        m_request = reply.value();
}

void ThumbnailerRequest::takeReady(uint /*request*/, const QStringList& uris)
{
    if (uris.contains(m_uri))
        finishSoon(true);
}

void ThumbnailerRequest::takeError(uint /*request*/, const QStringList& uris, int /*code*/, const QString& /*message*/)
{
    if (uris.contains(m_uri))
        finishSoon(false);
}

void ThumbnailerRequest::takeFinished(uint request)
{
    if (m_request == request)
        finishSoon(false);
}

// Finishes in the next turn of the queue: the receiver of the result may destroy this object, whose slot is being
// called now.
void ThumbnailerRequest::finishSoon(bool hasThumbnail)
{
    if (std::exchange(m_isAnswered, true))
        return;
    m_limit = m_queue.after(0, [this, hasThumbnail] { finish(hasThumbnail); });
}

void ThumbnailerRequest::finish(bool hasThumbnail)
{
    const auto completion = std::exchange(m_completion, nullptr);
    completion(hasThumbnail ? std::optional(ThumbnailMaker::Made()) : std::nullopt);
}

} // namespace nookle
