#pragma once

#include "WebReach.h"
#include "WebRoutes.h"

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QObject>
#include <QUrl>

#include <functional>
#include <memory>

class QNetworkReply;

namespace nookle {

class ContentDecoder;
class DelayedTask;
class MainQueue;

/// What a server answers before the body, after all redirects.
struct WebResponse {
    QUrl url;
    WebReach reach = WebReach::publicNetwork;
    QByteArray contentType;
};

/// One GET, with everything that a page on the internet must not get: no cookies, no credentials, no referrer, no file,
/// no way from the internet to a private address. Each host is looked up first, and what is connected to is an address
/// that was judged. It has no time limit. Main thread only.
class WebTransfer final {
public:
    struct Wish {
        QUrl url;
        /// Where the wish comes from. What comes from the internet is not led to a private address.
        WebReach from = WebReach::privateNetwork;
        QByteArray accept;
        /// The most that is read, as sent and as decoded.
        qint64 maximumBytes = 0;
    };

    enum class End {
        /// The body was read to its end, or as far as it was wanted.
        complete,
        /// There is more than may be read.
        tooLong,
        failed,
    };

    inline static constexpr int maximumRedirects = 10;
    /// How long one of several addresses may take to accept a connection before the next one is tried.
    inline static constexpr double connectSeconds = 2.5;

    WebTransfer(WebRoutes& routes, MainQueue& queue, Wish wish);
    ~WebTransfer();
    WebTransfer(const WebTransfer&) = delete;
    WebTransfer& operator=(const WebTransfer&) = delete;

    void start();

    /// A successful answer has begun. False when its body is not wanted. Must not destroy the transfer.
    std::function<bool(const WebResponse&)> onResponse;

    /// The next part of the body. False when nothing more is wanted. Must not destroy the transfer.
    std::function<bool(const QByteArray&)> onData;

    /// The end, once, never inside `start`. May destroy the transfer.
    std::function<void(End)> onEnd;

private:
    void visit(const QUrl& url);
    void follow(std::optional<WebRoute> route);
    void connectToNextAddress();
    void request(const QUrl& target);
    void watchConnection();
    /// True when the body is to be read.
    [[nodiscard]] bool takeResponse();
    void redirect();
    /// True when it has read something and wants more. Otherwise this transfer may be gone.
    bool readBody();
    void finishReply();
    void dropReply();
    void end(End end);

    WebRoutes& m_routes;
    MainQueue& m_queue;
    QUrl m_url;
    WebReach m_from;
    QByteArray m_accept;
    /// How much may still be read, as sent and as decoded.
    qint64 m_encodedRoom;
    qint64 m_decodedRoom;
    int m_redirects = 0;
    bool m_hasResponse = false;
    bool m_isConnected = false;

    std::unique_ptr<WebRouteRequest> m_routeRequest;
    WebRoute m_route;
    std::unique_ptr<DelayedTask> m_connectLimit;
    /// Made for the first request: it loads the TLS library and starts a thread. Not shared, so that nothing of one
    /// transfer, such as a connection or a credential, is there for the next.
    std::unique_ptr<QNetworkAccessManager> m_manager;
    std::unique_ptr<QNetworkReply> m_reply;
    std::unique_ptr<ContentDecoder> m_decoder;
    /// Receives what the reply says, from the event loop: never while the reply is in the middle of something.
    std::unique_ptr<QObject> m_receiver;
    /// Expires with this object, for what is still in the queue then.
    std::shared_ptr<WebTransfer*> m_self;
};

} // namespace nookle
