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

/// One thumbnail that the session's thumbnailer service is asked for. Destroying it takes the request back.
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
    /// The service's number for the request, once it has told it.
    std::optional<uint> m_request;
    /// The service has said how it ended.
    bool m_isAnswered = false;
    /// The end of its time, or of the request that is answered.
    std::unique_ptr<Cancellable> m_limit;
};

} // namespace nookle
