#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <variant>

namespace nookle {

/// Puts together what a helper sends, in pieces of any size: a greeting, then messages that each come after their
/// length in four bytes, the highest first. After nonsense, nothing it sends is worth anything.
class FrameReader final {
public:
    struct Incomplete {};
    struct Nonsense {};
    struct Greeted {};

    void append(QByteArrayView bytes);

    /// The greeting, which comes first and once.
    [[nodiscard]] std::variant<Incomplete, Nonsense, Greeted> takeGreeting(QByteArrayView greeting);

    /// The next message. One longer than `longest` is nonsense, before any of it has come.
    [[nodiscard]] std::variant<Incomplete, Nonsense, QByteArray> takeMessage(quint32 longest);

    /// Whether there are bytes that nobody has taken.
    [[nodiscard]] bool hasRest() const { return !m_bytes.isEmpty(); }

private:
    QByteArray m_bytes;
};

} // namespace nookle
