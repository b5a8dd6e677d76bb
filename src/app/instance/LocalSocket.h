#pragma once

#include "FileDescriptor.h"

#include <QByteArray>

#include <chrono>

namespace nookle {

// Stream sockets with a name in the file system. The toolkit's own are in its network library, which on Debian 13 loads
// three dozen others, and they would take as long as all that the program loads besides.

/// Connects to the socket at that path; none when nobody listens there. Whatever waits for the other end then or later,
/// fails after `patience`.
[[nodiscard]] FileDescriptor connectToSocket(const QByteArray& path, std::chrono::milliseconds patience);

/// Makes the socket at that path and takes connections, without waiting for them; none, with errno, when that fails.
[[nodiscard]] FileDescriptor listenAtSocket(const QByteArray& path);

/// The next connection that somebody has made; none, with errno, when there is no other, or when so few descriptors are
/// left (EMFILE) that what a connection asks for might fail.
[[nodiscard]] FileDescriptor acceptConnection(const FileDescriptor& listening);

/// Whether a program of the same user is at the other end.
[[nodiscard]] bool isSameUser(const FileDescriptor& socket);

/// Whether the other end is still open. Does not wait.
[[nodiscard]] bool hasOtherEnd(const FileDescriptor& socket);

/// Sends everything; false when the other end is gone or takes no more.
[[nodiscard]] bool sendAll(const FileDescriptor& socket, const QByteArray& bytes);

} // namespace nookle
