#pragma once

#include <QByteArray>

#include <optional>

namespace nookle {

/// Tells whether the index on disk still has the content that the program last read or wrote. Any thread.
class IndexStamp {
public:
    /// Makes the stamp of the file at `path`, whose content is `bytes`.
    IndexStamp(const QByteArray& path, const QByteArray& bytes);

    /// Whether the file at `path` has the same content. The file is read only if its size is the same but its inode or
    /// time differs: some file systems change these by themselves.
    [[nodiscard]] bool isOf(const QByteArray& path) const;

private:
    /// The properties that change when a file is written or replaced.
    struct State {
        quint64 device = 0;
        quint64 inode = 0;
        qint64 size = 0;
        qint64 seconds = 0;
        qint64 nanoseconds = 0;

        bool operator==(const State&) const = default;
    };

    /// None if there is no regular file.
    [[nodiscard]] static std::optional<State> stateOf(const QByteArray& path);

    std::optional<State> m_state;
    qsizetype m_size;
    size_t m_hash;
};

} // namespace nookle
