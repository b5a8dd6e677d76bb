#pragma once

#include "FileDescriptor.h"

#include <QByteArray>

#include <chrono>
#include <cstddef>
#include <optional>
#include <vector>

namespace nookle {

/// What a child process sends to the compositor, held back until it is passed on. Requests with descriptors of files.
class HeldRequest final {
public:
    using Clock = std::chrono::steady_clock;

    [[nodiscard]] static std::optional<HeldRequest> tryMake();

    /// Called in the child: from now on, what it sends to that socket comes here.
    void divert(int socket) const;

    /// Waits until the child has sent something, and all of it; false when it has not before the deadline.
    [[nodiscard]] bool receive(Clock::time_point deadline);

    /// Can be read when the child has sent something.
    [[nodiscard]] int pipe() const { return m_ours.get(); }

    /// Sends what was received to the socket, all in one message where one has room for it: the compositor reads it at
    /// once. Waits for a socket that takes nothing now, until the deadline. Says how many requests have been sent, in
    /// their order.
    [[nodiscard]] static std::size_t passOn(int socket, const std::vector<const HeldRequest*>& requests,
                                            Clock::time_point deadline);

private:
    HeldRequest(FileDescriptor ours, FileDescriptor childs);

    using Requests = std::vector<const HeldRequest*>;

    [[nodiscard]] bool receiveSome();
    [[nodiscard]] static bool send(int socket, Requests::const_iterator first, Requests::const_iterator end,
                                   Clock::time_point deadline);

    FileDescriptor m_ours;
    FileDescriptor m_childs;
    QByteArray m_bytes;
    std::vector<FileDescriptor> m_files;
};

/// Waits until the socket takes something; false when it does not before the deadline.
[[nodiscard]] bool waitToWrite(int socket, HeldRequest::Clock::time_point deadline);

} // namespace nookle
