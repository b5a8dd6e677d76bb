#pragma once

#include <QByteArray>

#include <optional>

namespace nookle {

/// Tells whether the index on disk is still the one that the program has read or written. Any thread.
class IndexStamp {
public:
    /// Of the file at `path`, whose content is `bytes`.
    IndexStamp(const QByteArray& path, const QByteArray& bytes);

    /// Whether the file at `path` has that content. Its content is read only if its identity, size or time differ:
    /// some file systems change identities and times by themselves.
    [[nodiscard]] bool isOf(const QByteArray& path) const;

private:
    /// What changes when a file is written or replaced.
    struct State {
        quint64 device = 0;
        quint64 inode = 0;
        qint64 size = 0;
        qint64 seconds = 0;
        qint64 nanoseconds = 0;

        bool operator==(const State&) const = default;
    };

    /// None where there is no regular file.
    [[nodiscard]] static std::optional<State> stateOf(const QByteArray& path);

    std::optional<State> m_state;
    qsizetype m_size;
    size_t m_hash;
};

} // namespace nookle
