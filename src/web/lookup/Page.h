#pragma once

#include "IconLink.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace nookle {

/// What a web page says about itself in its head.
struct Page {
    /// Ready to be shown. None when the page has none or an empty one.
    std::optional<QString> title;
    QList<IconLink> icons;
    /// What addresses in the page are relative to, itself relative to the page's. Empty when the page does not say.
    QString baseHref;
    /// Whether the head ends in what was read, so that nothing that follows makes a difference.
    bool isHeadOver = false;

    inline static constexpr qsizetype mostIcons = 64;
};

/// Reads a page, or the beginning of one. `contentType` is what the server says, which decides on the character set
/// before the page itself does. A page made for it takes long, or more memory than there is.
[[nodiscard]] Page readPage(const QByteArray& bytes, const QByteArray& contentType);

} // namespace nookle
