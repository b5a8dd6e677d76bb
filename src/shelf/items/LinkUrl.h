#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace nookle {

/// An absolute URL that keeps its original text. QUrl would change the host's letter case and some escapes. Two objects
/// are equal if their texts are equal.
class LinkUrl {
public:
    /// Parses RFC 3986 syntax. None if the text is not a valid URL, has no scheme, or has a port that is not a number.
    /// The port number may be too large.
    [[nodiscard]] static std::optional<LinkUrl> parse(const QString& text);

    /// Parses the text of a saved link. Accepts what `parse` accepts, and also misplaced brackets and more than one
    /// "#".
    [[nodiscard]] static std::optional<LinkUrl> parseSaved(const QString& text);

    /// The original text.
    [[nodiscard]] const QString& absoluteString() const { return m_text; }

    /// The scheme, in lower case.
    [[nodiscard]] QString scheme() const;

    /// The host as it is written, without user, port and the brackets of an IPv6 address. None if it is missing or
    /// empty.
    [[nodiscard]] std::optional<QString> host() const;

    /// The URL for programs that open it, with the host in ASCII form. The result is invalid if QUrl refuses the text,
    /// for example because the port is too large.
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
