#include "WebTransfer.h"

#include <curl/curl.h>

#include <memory>
#include <utility>

namespace nookle {

namespace {

struct CurlDeleter {
    void operator()(CURL* handle) const { ::curl_easy_cleanup(handle); }
    void operator()(curl_slist* list) const { ::curl_slist_free_all(list); }
};

using List = std::unique_ptr<curl_slist, CurlDeleter>;

void append(List& list, const QByteArray& entry)
{
    list.reset(::curl_slist_append(list.release(), entry.constData()));
}

[[nodiscard]] bool isWebAddress(const QUrl& url)
{
    return url.isValid() && !url.host().isEmpty()
        && (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"));
}

[[nodiscard]] bool isRedirect(long status)
{
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

/// One request and its response.
class Step final {
public:
    enum class End { response, redirect, failed };

    Step(const WebSurroundings& surroundings, const WebWish& wish, const QUrl& url, WebReach from)
        : m_surroundings(surroundings)
        , m_wish(wish)
        , m_from(from)
        , m_handle(::curl_easy_init())
    {
        m_response.url = url.adjusted(QUrl::RemoveUserInfo | QUrl::RemoveFragment);
    }

    [[nodiscard]] End run();
    [[nodiscard]] WebResponse& response() { return m_response; }
    [[nodiscard]] const QByteArray& location() const { return m_location; }

private:
    template <typename Value> void set(CURLoption option, Value value)
    {
        m_isSet = ::curl_easy_setopt(m_handle.get(), option, value) == CURLE_OK && m_isSet;
    }

    void setRequest();
    void setLimits();
    void setRoute();
    [[nodiscard]] bool takeHeader(const QByteArray& line);
    [[nodiscard]] bool takeHead();
    [[nodiscard]] bool takeBody(QByteArrayView bytes);
    [[nodiscard]] bool mayConnect(const sockaddr& address) const;

    static std::size_t onHeader(char* bytes, std::size_t size, std::size_t count, void* step);
    static std::size_t onBody(char* bytes, std::size_t size, std::size_t count, void* step);
    static curl_socket_t onSocket(void* step, curlsocktype purpose, curl_sockaddr* address);
    static int onProgress(void* step, curl_off_t total, curl_off_t received, curl_off_t, curl_off_t);

    const WebSurroundings& m_surroundings;
    const WebWish& m_wish;
    WebReach m_from;
    std::unique_ptr<CURL, CurlDeleter> m_handle;
    List m_headers;
    List m_aliases;
    bool m_isSet = true;
    bool m_hasProxy = false;

    qsizetype m_headerBytes = 0;
    int m_headerLines = 0;
    QByteArray m_location;
    bool m_hasHead = false;
    /// The result, if this object has ended the transfer itself.
    std::optional<End> m_end;
    WebResponse m_response;
};

Step::End Step::run()
{
    if (!m_handle)
        return End::failed;
    setRequest();
    setLimits();
    setRoute();
    if (!m_isSet)
        return End::failed;
    const CURLcode code = ::curl_easy_perform(m_handle.get());
    if (m_end)
        return *m_end;
    return code == CURLE_OK && m_hasHead ? End::response : End::failed;
}

void Step::setRequest()
{
    append(m_headers, "Accept: " + m_wish.accept);
    set(CURLOPT_URL, m_response.url.toEncoded().constData());
    set(CURLOPT_PROTOCOLS_STR, "http,https");
    set(CURLOPT_HTTP_VERSION, long(CURL_HTTP_VERSION_1_1));
    set(CURLOPT_HTTPHEADER, m_headers.get());
    set(CURLOPT_USERAGENT, "Mozilla/5.0 (compatible; Nookle; link preview)");
    set(CURLOPT_ACCEPT_ENCODING, "gzip, deflate, br");
    set(CURLOPT_NOSIGNAL, 1L);
    if (!m_surroundings.authorities.isEmpty())
        set(CURLOPT_CAINFO, m_surroundings.authorities.constData());
}

void Step::setLimits()
{
    set(CURLOPT_HEADERFUNCTION, onHeader);
    set(CURLOPT_HEADERDATA, this);
    set(CURLOPT_WRITEFUNCTION, onBody);
    set(CURLOPT_WRITEDATA, this);
    set(CURLOPT_NOPROGRESS, 0L);
    set(CURLOPT_XFERINFOFUNCTION, onProgress);
    set(CURLOPT_XFERINFODATA, this);
}

void Step::setRoute()
{
    const bool isLocal = isThisComputer(m_response.url.host());
    const QByteArray proxy = isLocal ? QByteArray() : m_surroundings.proxyFor(m_response.url);
    m_hasProxy = !proxy.isEmpty();
    // Set even if it is empty: otherwise the library would read the proxy from the environment.
    set(CURLOPT_PROXY, proxy.constData());
    set(CURLOPT_NOPROXY, "");
    set(CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
    for (const QByteArray& alias : m_surroundings.aliases)
        append(m_aliases, alias);
    set(CURLOPT_CONNECT_TO, m_aliases.get());
    set(CURLOPT_OPENSOCKETFUNCTION, onSocket);
    set(CURLOPT_OPENSOCKETDATA, this);
    if (!m_hasProxy)
        return;
    m_response.reach = reachOfName(m_response.url.host());
    m_isSet = m_isSet && !(m_from == WebReach::publicNetwork && m_response.reach == WebReach::privateNetwork);
}

bool Step::mayConnect(const sockaddr& address) const
{
    if (m_hasProxy)
        return true;
    const std::optional<WebAddress> judged = addressOf(address);
    return judged && (m_from == WebReach::privateNetwork || m_surroundings.reachOf(*judged) == WebReach::publicNetwork);
}

bool Step::takeHeader(const QByteArray& line)
{
    m_headerBytes += line.size();
    if (m_headerBytes > maximumHeaderBytes || ++m_headerLines > maximumHeaders) {
        m_end = End::failed;
        return false;
    }
    if (m_hasHead)
        return true;
    if (line.trimmed().isEmpty())
        return takeHead();
    const qsizetype colon = line.indexOf(':');
    const QByteArray name = line.first(qMax<qsizetype>(colon, 0)).toLower();
    if (name == "location")
        m_location = line.mid(colon + 1).trimmed();
    else if (name == "content-type")
        m_response.contentType = line.mid(colon + 1).trimmed();
    return true;
}

// Called at the end of the headers.
bool Step::takeHead()
{
    long status = 0;
    char* address = nullptr;
    ::curl_easy_getinfo(m_handle.get(), CURLINFO_RESPONSE_CODE, &status);
    if (status >= 100 && status <= 199) {
        m_location.clear();
        m_response.contentType.clear();
        return true;
    }
    m_hasHead = true;
    ::curl_easy_getinfo(m_handle.get(), CURLINFO_PRIMARY_IP, &address);
    if (const auto connected = addressOf(QByteArray(address)); connected && !m_hasProxy)
        m_response.reach = m_surroundings.reachOf(*connected);
    if (isRedirect(status))
        m_end = End::redirect;
    else if (status < 200 || status > 299)
        m_end = End::failed;
    else if (m_wish.isEnough(m_response))
        m_end = End::response;
    return !m_end;
}

bool Step::takeBody(QByteArrayView bytes)
{
    const qsizetype room = m_wish.maximumBytes - m_response.body.size();
    m_response.isTooLong = bytes.size() > room;
    m_response.body.append(bytes.first(qMin(room, bytes.size())));
    if (!m_response.isTooLong && !m_wish.isEnough(m_response))
        return true;
    m_end = End::response;
    return false;
}

std::size_t Step::onHeader(char* bytes, std::size_t size, std::size_t count, void* step)
{
    const bool goesOn = static_cast<Step*>(step)->takeHeader(QByteArray(bytes, qsizetype(size * count)));
    return goesOn ? size * count : 0;
}

std::size_t Step::onBody(char* bytes, std::size_t size, std::size_t count, void* step)
{
    const bool goesOn = static_cast<Step*>(step)->takeBody(QByteArrayView(bytes, qsizetype(size * count)));
    return goesOn ? size * count : 0;
}

curl_socket_t Step::onSocket(void* step, curlsocktype, curl_sockaddr* address)
{
    if (!static_cast<Step*>(step)->mayConnect(address->addr))
        return CURL_SOCKET_BAD;
    return ::socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
}

// Limits the size of the body as it was sent, because it may decode to nothing.
int Step::onProgress(void* step, curl_off_t, curl_off_t received, curl_off_t, curl_off_t)
{
    auto& self = *static_cast<Step*>(step);
    if (received <= self.m_wish.maximumBytes || self.m_end)
        return 0;
    self.m_response.isTooLong = true;
    self.m_end = End::response;
    return 1;
}

} // namespace

std::optional<WebResponse> fetch(const WebSurroundings& surroundings, const WebWish& wish)
{
    QUrl url = wish.url;
    WebReach from = wish.from;
    for (int redirects = 0; redirects <= maximumRedirects && isWebAddress(url); ++redirects) {
        Step step(surroundings, wish, url, from);
        const Step::End end = step.run();
        if (end == Step::End::failed)
            return std::nullopt;
        if (end == Step::End::response)
            return std::move(step.response());
        const QUrl location = QUrl::fromEncoded(step.location());
        if (location.isEmpty() || !location.isValid())
            return std::nullopt;
        from = step.response().reach;
        url = url.resolved(location);
    }
    return std::nullopt;
}

} // namespace nookle
