#pragma once

#include "ThumbnailMaker.h"

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

class QDBusMessage;
class QDBusPendingCallWatcher;

namespace nookle {

class MainQueue;

/// One request to the session's thumbnailer service. Destroying it cancels the request.
class ThumbnailerRequest final : public QObject {
    Q_OBJECT

public:
    ThumbnailerRequest(MainQueue& queue, QDBusConnection bus, const ThumbnailMaker::Wanted& wanted, double timeout,
                       ThumbnailMaker::Completion completion);
    ~ThumbnailerRequest() override;

private:
    Q_SLOT void takeReady(uint request, const QStringList& uris);
    Q_SLOT void takeError(uint request, const QStringList& uris, int code, const QString& message);
    Q_SLOT void takeFinished(uint request);

    void listen(const char* signal, const char* slot);
    void queueRequest(const ThumbnailMaker::Wanted& wanted);
    void takeAnswer(QDBusPendingCallWatcher& call);
    void finishSoon(bool hasThumbnail);
    void finish(bool hasThumbnail);

    MainQueue& m_queue;
    QDBusConnection m_bus;
    QString m_uri;
    ThumbnailMaker::Completion m_completion;
    /// The service's number for the request; none before its reply has arrived.
    std::optional<uint> m_request;
    /// Whether the service has reported the result.
    bool m_isAnswered = false;
    /// The timeout; after the answer, the pending call of `finish`.
    std::unique_ptr<Cancellable> m_limit;
};

} // namespace nookle
