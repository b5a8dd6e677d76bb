#pragma once

#include <QByteArray>

#include <optional>

namespace nookle {

/// Reads a settings file of another program, with lines "key=value" below headings "[group]". All other lines are
/// ignored. Never writes the file.
class KeyValueFile {
public:
    /// Reads the file. A file that is unreadable, not regular or larger than 1 MiB counts as empty. Never waits for a
    /// pipe.
    [[nodiscard]] static KeyValueFile read(const QByteArray& path);

    explicit KeyValueFile(const QByteArray& content);

    /// The value of `key` in `group`. An empty `group` means the lines above the first heading. In the file, a key may
    /// have a flag, as in "key[$e]".
    [[nodiscard]] std::optional<QByteArray> value(const QByteArray& group, const QByteArray& key) const;

private:
    QByteArray m_content;
};

} // namespace nookle
