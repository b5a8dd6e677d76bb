#pragma once

#include "DecoderProtocol.h"

#include <QByteArray>

#include <variant>

namespace nookle {

/// Puts together what a decoder sends, in pieces of any size. Whatever an honest decoder would not send is nonsense,
/// after which nothing it sends is worth anything.
class ReplyReader final {
public:
    struct Incomplete {};
    struct Nonsense {};
    struct Greeted {};

    void append(QByteArrayView bytes);

    /// The greeting, which comes first and once.
    [[nodiscard]] std::variant<Incomplete, Nonsense, Greeted> takeGreeting();

    /// The answer to `request`, the oldest that has none yet.
    [[nodiscard]] std::variant<Incomplete, Nonsense, DecodeReply> takeReply(const DecodeRequest& request);

    /// Whether there are bytes that nobody has taken.
    [[nodiscard]] bool hasRest() const { return !m_bytes.isEmpty(); }

private:
    QByteArray m_bytes;
};

} // namespace nookle
