#pragma once

#include "LinkUrl.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QUuid>

#include <optional>
#include <variant>

namespace nookle {

/// A referenced file or folder, which stays in its place.
struct FileContent {
    /// The reference that `FileReferences` made.
    QByteArray bookmark;
    /// The last known file name.
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
    /// The name of the file in the item's folder.
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

    /// The item's name; may be empty.
    [[nodiscard]] QString displayName() const;

    /// The name as it is shown (see `shownText`); that of a text is its first line that is not blank. The time does not
    /// grow with the length of the text.
    [[nodiscard]] QString shownName() const;

    /// The web address (http or https, with a host) in `from`, which may have white space around it; none if `from` is
    /// anything else.
    [[nodiscard]] static std::optional<LinkUrl> webURL(const QString& from);

    bool operator==(const ShelfItem&) const = default;
};

} // namespace nookle
