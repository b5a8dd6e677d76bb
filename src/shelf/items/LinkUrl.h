#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace nookle {

/// An absolute URL that keeps the text it was made from: QUrl alone would rewrite the host's letter case and some
/// escapes. Two are equal when their texts are.
class LinkUrl {
public:
    /// Reads RFC 3986 syntax. None for text that is not a valid URL, that has no scheme, or whose port is no
    /// number; a number may be larger than any port.
    [[nodiscard]] static std::optional<LinkUrl> parse(const QString& text);

    /// The same for the text of a saved link. It may also hold brackets and further "#" where they do not belong.
    [[nodiscard]] static std::optional<LinkUrl> parseSaved(const QString& text);

    /// The text as it was given.
    [[nodiscard]] const QString& absoluteString() const { return m_text; }

    /// In lower case.
    [[nodiscard]] QString scheme() const;

    /// The host as it stands in the text, without user, port and the brackets of an IPv6 address; none when it is
    /// missing or empty.
    [[nodiscard]] std::optional<QString> host() const;

    /// The same for programs that open it: a host in escapes or in letters of other scripts has its form in ASCII. Not
    /// valid for one that the toolkit refuses, such as one whose port is too large.
    [[nodiscard]] QUrl url() const;

    bool operator==(const LinkUrl&) const = default;

private:
    explicit LinkUrl(const QString& text)
        : m_text(text)
    {
    }

    QString m_text;
};

} // namespace nookle
