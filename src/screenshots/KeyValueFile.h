#pragma once

#include <QByteArray>

#include <optional>

namespace nookle {

/// A settings file of lines "key=value" below headings "[group]", as other programs write it. It is only ever looked
/// into: what is not such a line is passed over.
class KeyValueFile {
public:
    /// Reads the file; an unreadable, special or very large one counts as empty. Never waits for a pipe.
    [[nodiscard]] static KeyValueFile read(const QByteArray& path);

    explicit KeyValueFile(const QByteArray& content);

    /// The text behind `key` in `group`, which is empty for what stands above the first heading. A key may carry a
    /// flag, as in "key[$e]".
    [[nodiscard]] std::optional<QByteArray> value(const QByteArray& group, const QByteArray& key) const;

private:
    QByteArray m_content;
};

} // namespace nookle
