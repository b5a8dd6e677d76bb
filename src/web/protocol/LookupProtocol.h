#pragma once

#include "ProxySettings.h"
#include "WebReach.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QtGlobal>

#include <optional>

namespace nookle {

// What the program and nookle-lookup say to each other over a socket of their own. The helper begins with a greeting
// and then answers requests in the order in which they came. What it sends counts as hostile: a server may have taken
// it over.

/// What the helper says once it is ready.
inline constexpr QByteArrayView lookupGreeting("nookle-lookup-1\n");

/// What to find out.
struct LookupRequest {
    enum class Purpose : quint8 {
        /// The title of a page, and where its icon may be.
        page = 1,
        /// The icon at an address.
        icon = 2,
    };

    Purpose purpose = Purpose::page;
    QByteArray url;
    /// Where the wish comes from. What comes from the internet is not led to a private address.
    WebReach from = WebReach::privateNetwork;
    ProxySettings proxies = {};

    [[nodiscard]] QByteArray encode() const;

    /// Nothing for bytes that `encode` cannot have written.
    [[nodiscard]] static std::optional<LookupRequest> decode(const QByteArray& bytes);

    /// A longer address is not asked for.
    inline static constexpr qsizetype longestUrl = 16'384;
    /// No encoded request is longer, or else its proxies are left out.
    inline static constexpr quint32 longest = 65'536;

    bool operator==(const LookupRequest&) const = default;
};

/// Where an icon may be: at an address, or in the page itself.
struct IconPlace {
    /// Of http or https; empty when there are bytes.
    QByteArray url;
    QByteArray bytes;

    bool operator==(const IconPlace&) const = default;
};

/// The answer to one request.
struct LookupReply {
    /// Whether there is something at the address.
    bool isFound = false;
    /// Ready to be shown.
    std::optional<QString> title;
    /// The best place first. Empty for what is no page.
    QList<IconPlace> places;
    /// Where the page stands, and so what its icon may be fetched from.
    WebReach reach = WebReach::publicNetwork;
    /// In one of the formats of icons.
    QByteArray icon;

    [[nodiscard]] QByteArray encode() const;

    /// Nothing for bytes that an honest helper does not answer `request` with.
    [[nodiscard]] static std::optional<LookupReply> decode(const QByteArray& bytes, const LookupRequest& request);

    inline static constexpr qsizetype mostPlaces = 4;
    inline static constexpr qsizetype largestIcon = 524'288;
    /// No encoded reply is longer.
    inline static constexpr quint32 longest = mostPlaces * (largestIcon + LookupRequest::longestUrl) + 65'536;

    bool operator==(const LookupReply&) const = default;
};

} // namespace nookle
