#include "WebTransfer.h"

#include "ContentDecoder.h"
#include "MainQueue.h"

#include <QNetworkReply>
#include <QNetworkRequest>

#include <utility>

namespace nookle {

namespace {

inline constexpr qint64 readBufferSize = 65'536;

[[nodiscard]] bool isWebAddress(const QUrl& url)
{
    return url.isValid() && !url.host().isEmpty()
        && (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"));
}

[[nodiscard]] QByteArray hostHeader(const QUrl& url)
{
    QByteArray host = url.host(QUrl::FullyEncoded).toLatin1();
    if (host.contains(':'))
        host.prepend('[').append(']');
    if (url.port() >= 0)
        host.append(':').append(QByteArray::number(url.port()));
    return host;
}

[[nodiscard]] bool isRedirect(int status)
{
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

void forbidEverythingButTheRequest(QNetworkRequest& request)
{
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    // Its requests take the host from the address, which is not the name here.
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
}

} // namespace

WebTransfer::WebTransfer(WebRoutes& routes, MainQueue& queue, Wish wish)
    : m_routes(routes)
    , m_queue(queue)
    , m_url(std::move(wish.url))
    , m_from(wish.from)
    , m_accept(std::move(wish.accept))
    , m_encodedRoom(wish.maximumBytes)
    , m_decodedRoom(wish.maximumBytes)
    , m_self(std::make_shared<WebTransfer*>(this))
{
}

WebTransfer::~WebTransfer()
{
    dropReply();
}

void WebTransfer::start()
{
    m_queue.post([weak = std::weak_ptr(m_self)] {
        if (const auto self = weak.lock())
            (*self)->visit((*self)->m_url);
    });
}

void WebTransfer::visit(const QUrl& url)
{
    if (!isWebAddress(url))
        return end(End::failed);
    m_url = url.adjusted(QUrl::RemoveUserInfo | QUrl::RemoveFragment);
    m_routeRequest = m_routes.find(m_url, [this](std::optional<WebRoute> route) { follow(std::move(route)); });
}

void WebTransfer::follow(std::optional<WebRoute> route)
{
    m_routeRequest.reset();
    if (!route || (m_from == WebReach::publicNetwork && route->reach == WebReach::privateNetwork))
        return end(End::failed);
    m_from = route->reach;
    m_route = std::move(*route);
    if (!m_manager)
        m_manager = std::make_unique<QNetworkAccessManager>();
    m_manager->setProxy(m_route.proxy);
    if (m_route.proxy.type() == QNetworkProxy::NoProxy)
        connectToNextAddress();
    else
        request(m_url);
}

void WebTransfer::connectToNextAddress()
{
    dropReply();
    if (m_route.addresses.isEmpty())
        return end(End::failed);
    QUrl target = m_url;
    target.setHost(m_route.addresses.takeFirst().toString());
    request(target);
    if (!m_route.addresses.isEmpty())
        m_connectLimit = m_queue.after(connectSeconds, [this] { connectToNextAddress(); });
}

void WebTransfer::request(const QUrl& target)
{
    QNetworkRequest request(target);
    forbidEverythingButTheRequest(request);
    request.setRawHeader("Host", hostHeader(m_url));
    request.setRawHeader("User-Agent", "Mozilla/5.0 (compatible; Nookle; link preview)");
    request.setRawHeader("Accept", m_accept);
    // Said here so that the body comes as it was sent, and nobody but this decodes it.
    request.setRawHeader("Accept-Encoding", ContentDecoder::acceptedEncodings);
    // The certificate must be the name's, whatever address stands for it.
    request.setPeerVerifyName(m_url.host());
    m_hasResponse = false;
    m_isConnected = false;
    m_reply.reset(m_manager->get(request));
    m_reply->setReadBufferSize(readBufferSize);
    watchConnection();
}

void WebTransfer::watchConnection()
{
    m_receiver = std::make_unique<QObject>();
    const auto connectQueued = [this](auto signal, auto slot) {
        QObject::connect(m_reply.get(), signal, m_receiver.get(), std::move(slot), Qt::QueuedConnection);
    };
    connectQueued(&QNetworkReply::requestSent, [this] {
        m_isConnected = true;
        m_connectLimit.reset();
    });
    connectQueued(&QNetworkReply::metaDataChanged, [this] { readBody(); });
    connectQueued(&QNetworkReply::readyRead, [this] { readBody(); });
    connectQueued(&QNetworkReply::finished, [this] { finishReply(); });
}

bool WebTransfer::takeResponse()
{
    if (m_hasResponse)
        return true;
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status == 0)
        return false;
    m_hasResponse = true;
    m_connectLimit.reset();
    if (isRedirect(status)) {
        redirect();
        return false;
    }
    m_decoder = ContentDecoder::tryCreate(m_reply->rawHeader("Content-Encoding"));
    if (status < 200 || status > 299 || !m_decoder) {
        end(End::failed);
        return false;
    }
    const bool isWanted = onResponse(WebResponse{ m_url, m_from, m_reply->rawHeader("Content-Type") });
    if (!isWanted)
        end(End::complete);
    return isWanted;
}

void WebTransfer::redirect()
{
    const QUrl location = QUrl::fromEncoded(m_reply->rawHeader("Location"));
    dropReply();
    if (location.isEmpty() || !location.isValid() || ++m_redirects > maximumRedirects)
        return end(End::failed);
    visit(m_url.resolved(location));
}

bool WebTransfer::readBody()
{
    if (!takeResponse())
        return false;
    // One byte past a limit tells a body that just fits from one that goes on.
    const QByteArray encoded = m_reply->read(m_encodedRoom + 1);
    if (encoded.isEmpty())
        return false;
    std::optional<QByteArray> bytes = m_decoder->decode(encoded, m_decodedRoom + 1);
    if (!bytes) {
        end(End::failed);
        return false;
    }
    const bool isTooLong = encoded.size() > m_encodedRoom || bytes->size() > m_decodedRoom;
    bytes->truncate(m_decodedRoom);
    m_encodedRoom -= encoded.size();
    m_decodedRoom -= bytes->size();
    if ((bytes->isEmpty() || onData(*bytes)) && !isTooLong)
        return true;
    end(isTooLong ? End::tooLong : End::complete);
    return false;
}

void WebTransfer::finishReply()
{
    const bool isConnectFailure = !m_isConnected && !m_hasResponse
        && m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).isNull()
        && m_reply->error() != QNetworkReply::SslHandshakeFailedError;
    if (isConnectFailure)
        return connectToNextAddress();
    const bool isComplete = m_reply->error() == QNetworkReply::NoError;
    const std::weak_ptr<WebTransfer*> self = m_self;
    const QNetworkReply* const reply = m_reply.get();
    while (readBody()) {}
    // Reading may have come to an end, or gone on to another reply.
    if (!self.expired() && m_reply.get() == reply)
        end(isComplete ? End::complete : End::failed);
}

void WebTransfer::dropReply()
{
    m_connectLimit.reset();
    m_receiver.reset();
    m_reply.reset();
}

void WebTransfer::end(End end)
{
    const auto done = std::exchange(onEnd, nullptr);
    dropReply();
    m_routeRequest.reset();
    if (done)
        done(end);
}

} // namespace nookle
