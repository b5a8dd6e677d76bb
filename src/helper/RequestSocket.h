#pragma once

#include "FileDescriptor.h"

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace nookle {

/// A helper's end of the socket to the program. Its calls block without a timeout.
class RequestSocket final {
public:
    struct Incoming {
        QByteArray message;
        /// The descriptor that came with the message; closed if there was none.
        FileDescriptor file;
    };

    /// A message longer than `longest` bytes counts as the end of the requests.
    RequestSocket(FileDescriptor socket, quint32 longest);

    /// The next request; none once the program has closed its end.
    [[nodiscard]] std::optional<Incoming> receive();

    /// False when the program no longer listens.
    [[nodiscard]] bool send(QByteArrayView bytes);

    /// Sends the length of `message` as four bytes, big-endian, then the message. False when the program no longer
    /// listens.
    [[nodiscard]] bool sendMessage(const QByteArray& message);

private:
    [[nodiscard]] bool receiveAll(QByteArray& bytes, FileDescriptor& file);

    FileDescriptor m_socket;
    quint32 m_longest;
};

} // namespace nookle
