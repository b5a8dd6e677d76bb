#pragma once

#include "FileDescriptor.h"

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace nookle {

/// A helper's end of the socket to the program. Waits, without a time limit, for whatever it has to wait for.
class RequestSocket final {
public:
    struct Incoming {
        QByteArray message;
        /// What came with it, or none.
        FileDescriptor file;
    };

    /// A longer message than `longest` counts as the end.
    RequestSocket(FileDescriptor socket, quint32 longest);

    /// The next request; nothing once the program has no more.
    [[nodiscard]] std::optional<Incoming> receive();

    /// False when the program does not listen any more.
    [[nodiscard]] bool send(QByteArrayView bytes);

    /// Sends the length of `message` as four bytes, the highest first, then the message. False when the program does
    /// not listen any more.
    [[nodiscard]] bool sendMessage(const QByteArray& message);

private:
    [[nodiscard]] bool receiveAll(QByteArray& bytes, FileDescriptor& file);

    FileDescriptor m_socket;
    quint32 m_longest;
};

} // namespace nookle
