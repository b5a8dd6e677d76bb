#pragma once

#include "WebReach.h"
#include "WebSurroundings.h"

#include <QByteArray>
#include <QUrl>

#include <functional>
#include <optional>

namespace nookle {

/// What a server answers, after all redirects.
struct WebResponse {
    QUrl url;
    WebReach reach = WebReach::publicNetwork;
    QByteArray contentType;
    /// Decoded, and cut off where it is longer than was wished.
    QByteArray body;
    /// Whether there is more than may be read.
    bool isTooLong = false;
};

struct WebWish {
    QUrl url;
    /// Where the wish comes from. What comes from the internet is not led to a private address.
    WebReach from = WebReach::privateNetwork;
    QByteArray accept;
    /// The most that is read, as sent and as decoded.
    qsizetype maximumBytes = 0;
    /// Whether the rest of the response may stay where it is: asked before the body, and whenever it has grown.
    std::function<bool(const WebResponse&)> isEnough = [](const WebResponse&) { return false; };
};

inline constexpr int maximumRedirects = 10;
/// What the headers of one response may have altogether, those of its interim responses and its trailers included.
inline constexpr qsizetype maximumHeaderBytes = 262'144;
inline constexpr int maximumHeaders = 1'000;

/// One GET, with everything that a page on the internet must not get: no cookies, no credentials, no referrer, no file,
/// no way from the internet to a private address, which is judged when the connection is made. None when there is no
/// successful response. Waits for the server without a time limit.
[[nodiscard]] std::optional<WebResponse> fetch(const WebSurroundings& surroundings, const WebWish& wish);

} // namespace nookle
