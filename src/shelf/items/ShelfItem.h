#pragma once

#include "LinkUrl.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QUuid>

#include <optional>
#include <variant>

namespace nookle {

/// A file or folder that stays where it is.
struct FileContent {
    /// What FileReferences made for it.
    QByteArray bookmark;
    /// The last path component as last seen.
    QString name;

    bool operator==(const FileContent&) const = default;
};

/// Plain text.
struct TextContent {
    QString text;

    bool operator==(const TextContent&) const = default;
};

/// A web address.
struct LinkContent {
    LinkUrl url;
    /// The page's title, once known.
    std::optional<QString> title;
    /// Whether a favicon has been saved for the item.
    bool hasIcon = false;

    bool operator==(const LinkContent&) const = default;
};

/// An image that the shelf owns.
struct ImageContent {
    /// Its name inside the item's folder.
    QString fileName;

    bool operator==(const ImageContent&) const = default;
};

/// One thing on the shelf.
struct ShelfItem {
    using Content = std::variant<FileContent, TextContent, LinkContent, ImageContent>;

    QUuid id;
    /// When the item was added or last moved to the top, in UTC.
    QDateTime createdAt;
    Content content;
    /// Pinned items do not expire.
    bool pinned = false;

    /// What to call the item; may be empty.
    [[nodiscard]] QString displayName() const;

    /// The same as it is shown (see `shownText`). Takes no longer for the longest text.
    [[nodiscard]] QString shownName() const;

    /// The web address (http or https, with a host) that `from` consists of, leaving aside white space around it.
    [[nodiscard]] static std::optional<LinkUrl> webURL(const QString& from);

    bool operator==(const ShelfItem&) const = default;
};

} // namespace nookle
