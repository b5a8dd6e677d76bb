#pragma once

#include "WebReach.h"
#include "WebSurroundings.h"

#include <QByteArray>
#include <QUrl>

#include <functional>
#include <optional>

namespace nookle {

/// A server's response, after all redirects.
struct WebResponse {
    QUrl url;
    WebReach reach = WebReach::publicNetwork;
    QByteArray contentType;
    /// The body, with its content encoding removed, and cut to `WebWish::maximumBytes`.
    QByteArray body;
    /// Whether the body is longer than `WebWish::maximumBytes`.
    bool isTooLong = false;
};

struct WebWish {
    QUrl url;
    /// The network of the page that caused this request. A request caused by a public page must not reach a private
    /// address.
    WebReach from = WebReach::privateNetwork;
    QByteArray accept;
    /// The maximum size of the body, both as sent and as decoded.
    qsizetype maximumBytes = 0;
    /// Whether the rest of the response is not needed. Called before the body, and whenever more of it has arrived.
    std::function<bool(const WebResponse&)> isEnough = [](const WebResponse&) { return false; };
};

inline constexpr int maximumRedirects = 10;
/// The maximum size and number of the headers of one response, including those of interim responses and trailers.
inline constexpr qsizetype maximumHeaderBytes = 262'144;
inline constexpr int maximumHeaders = 1'000;

/// Sends a GET request and follows redirects. Sends no cookies, no credentials and no referrer, and reads no local
/// file. A request or redirect from the internet never reaches a private address; the address is checked when the
/// connection is made, or the host's name before that if a proxy resolves it. None when there is no successful
/// response. Waits for the server without a timeout.
[[nodiscard]] std::optional<WebResponse> fetch(const WebSurroundings& surroundings, const WebWish& wish);

} // namespace nookle
