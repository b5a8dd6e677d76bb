#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <variant>

namespace nookle {

/// Assembles the messages of a helper from pieces of any size. A helper sends a greeting, then messages, each after its
/// length in four bytes, big-endian. After `Nonsense` the caller must discard all that the helper sends.
class FrameReader final {
public:
    struct Incomplete {};
    struct Nonsense {};
    struct Greeted {};

    void append(QByteArrayView bytes);

    /// Takes the greeting, which the helper sends first and once.
    [[nodiscard]] std::variant<Incomplete, Nonsense, Greeted> takeGreeting(QByteArrayView greeting);

    /// Takes the next message. A length above `longest` is `Nonsense`, even before the message has arrived.
    [[nodiscard]] std::variant<Incomplete, Nonsense, QByteArray> takeMessage(quint32 longest);

    /// Whether there are bytes that were not taken.
    [[nodiscard]] bool hasRest() const { return !m_bytes.isEmpty(); }

private:
    QByteArray m_bytes;
};

} // namespace nookle
