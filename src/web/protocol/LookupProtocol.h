#pragma once

#include "ProxySettings.h"
#include "WebReach.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QtGlobal>

#include <optional>

namespace nookle {

// The protocol between the program and nookle-lookup, over a socket of their own. The helper sends a greeting and then
// answers requests in their order. Everything that it sends counts as hostile: a malicious server may have taken it
// over.

/// The helper sends this when it is ready.
inline constexpr QByteArrayView lookupGreeting("nookle-lookup-1\n");

/// A request for one lookup.
struct LookupRequest {
    enum class Purpose : quint8 {
        /// The title of a page, and the places of its icon.
        page = 1,
        /// The icon at an address.
        icon = 2,
    };

    Purpose purpose = Purpose::page;
    QByteArray url;
    /// The network of the page that caused this request. A request caused by a public page must not reach a private
    /// address.
    WebReach from = WebReach::privateNetwork;
    ProxySettings proxies = {};

    [[nodiscard]] QByteArray encode() const;

    /// None for bytes that `encode` cannot have written.
    [[nodiscard]] static std::optional<LookupRequest> decode(const QByteArray& bytes);

    /// The maximum length of an address. A longer one is not looked up.
    inline static constexpr qsizetype longestUrl = 16'384;
    /// The maximum size of an encoded request. `encode` leaves out the proxies of a request that would be larger.
    inline static constexpr quint32 longest = 65'536;

    bool operator==(const LookupRequest&) const = default;
};

/// A place of an icon: an address, or the icon's bytes if they are in the page itself.
struct IconPlace {
    /// An http or https address; empty when `bytes` are set.
    QByteArray url;
    QByteArray bytes;

    bool operator==(const IconPlace&) const = default;
};

/// The answer to one request.
struct LookupReply {
    /// Whether the server delivered something (for an icon: an image).
    bool isFound = false;
    /// The title, cleaned by `presentableTitle`.
    std::optional<QString> title;
    /// The best place first. Empty for anything but a page.
    QList<IconPlace> places;
    /// The network of the page, which decides from where its icon may be fetched.
    WebReach reach = WebReach::publicNetwork;
    /// The image file, in a format that icons have.
    QByteArray icon;

    [[nodiscard]] QByteArray encode() const;

    /// None for bytes that are not a valid answer to `request`.
    [[nodiscard]] static std::optional<LookupReply> decode(const QByteArray& bytes, const LookupRequest& request);

    inline static constexpr qsizetype mostPlaces = 4;
    inline static constexpr qsizetype largestIcon = 524'288;
    /// The maximum size of an encoded reply.
    inline static constexpr quint32 longest = mostPlaces * (largestIcon + LookupRequest::longestUrl) + 65'536;

    bool operator==(const LookupReply&) const = default;
};

} // namespace nookle
