#pragma once

#include "IconLink.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace nookle {

/// The data in the head of a web page.
struct Page {
    /// The title, cleaned by `presentableTitle`. None when the page has no title or an empty one.
    std::optional<QString> title;
    QList<IconLink> icons;
    /// The base for relative addresses in the page. It may itself be relative to the page's address. Empty when the
    /// page sets none.
    QString baseHref;
    /// Whether the end of the head was read, so that the rest of the page does not matter.
    bool isHeadOver = false;

    inline static constexpr qsizetype mostIcons = 64;
};

/// Reads a page, or the beginning of one. `contentType` is the server's header; its character set has priority over the
/// one that the page declares. A malicious page may take very long or exhaust the memory.
[[nodiscard]] Page readPage(const QByteArray& bytes, const QByteArray& contentType);

} // namespace nookle
