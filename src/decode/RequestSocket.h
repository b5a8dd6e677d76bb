#pragma once

#include "DecoderProtocol.h"
#include "FileDescriptor.h"

#include <optional>

namespace nookle {

/// The decoder's end of the socket to the program. Waits, without a time limit, for whatever it has to wait for.
class RequestSocket final {
public:
    struct Incoming {
        DecodeRequest request;
        FileDescriptor file;
    };

    explicit RequestSocket(FileDescriptor socket);

    /// The next request; nothing once the program has no more.
    [[nodiscard]] std::optional<Incoming> receive();

    /// False when the program does not listen any more.
    [[nodiscard]] bool send(QByteArrayView bytes);

private:
    [[nodiscard]] bool receiveAll(QByteArray& bytes, FileDescriptor& file);

    FileDescriptor m_socket;
};

} // namespace nookle
