#include "HeldRequest.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <utility>

namespace nookle {

namespace {

/// As many descriptors as one message may have.
inline constexpr std::size_t mostFiles = 28;

/// Room for the descriptors of a message.
struct Control {
    alignas(cmsghdr) std::array<char, CMSG_SPACE(mostFiles * sizeof(int))> space{};
};

[[nodiscard]] std::vector<FileDescriptor> filesOf(msghdr& message)
{
    std::vector<FileDescriptor> files;
    for (cmsghdr* part = CMSG_FIRSTHDR(&message); part; part = CMSG_NXTHDR(&message, part)) {
        if (part->cmsg_level != SOL_SOCKET || part->cmsg_type != SCM_RIGHTS)
            continue;
        std::vector<int> numbers((part->cmsg_len - CMSG_LEN(0)) / sizeof(int));
        std::memcpy(numbers.data(), CMSG_DATA(part), numbers.size() * sizeof(int));
        for (const int number : numbers)
            files.emplace_back(number);
    }
    return files;
}

/// Whether these bytes end where a request ends. Each begins with its object and, in the upper half of the next number,
/// its size.
[[nodiscard]] bool areWholeRequests(const QByteArray& bytes)
{
    constexpr qsizetype header = 2 * sizeof(std::uint32_t);
    constexpr int bitsOfCode = 16;
    qsizetype done = 0;
    while (bytes.size() - done >= header) {
        std::uint32_t sizeAndCode = 0;
        std::memcpy(&sizeAndCode, bytes.constData() + done + sizeof(std::uint32_t), sizeof(sizeAndCode));
        done += std::max<qsizetype>(sizeAndCode >> bitsOfCode, header);
    }
    return done == bytes.size();
}

/// Whether the socket can be read or written, as asked, before the deadline.
[[nodiscard]] bool waitFor(int socket, short readiness, HeldRequest::Clock::time_point deadline)
{
    pollfd end{ socket, readiness, 0 };
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - HeldRequest::Clock::now()).count();
        const int ready = left > 0 ? ::poll(&end, 1, static_cast<int>(left)) : 0;
        if (ready >= 0 || errno != EINTR)
            return ready > 0;
    }
}

} // namespace

bool waitToWrite(int socket, HeldRequest::Clock::time_point deadline)
{
    return waitFor(socket, POLLOUT, deadline);
}

HeldRequest::HeldRequest(FileDescriptor ours, FileDescriptor childs)
    : m_ours(std::move(ours))
    , m_childs(std::move(childs))
{
}

std::optional<HeldRequest> HeldRequest::tryMake()
{
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        return std::nullopt;
    return HeldRequest(FileDescriptor(ends[0]), FileDescriptor(ends[1]));
}

void HeldRequest::divert(int socket) const
{
    ::dup2(m_childs.get(), socket);
}

bool HeldRequest::receive(Clock::time_point deadline)
{
    do {
        if (!waitFor(m_ours.get(), POLLIN, deadline) || !receiveSome())
            return false;
    } while (!areWholeRequests(m_bytes));
    return true;
}

bool HeldRequest::receiveSome()
{
    std::array<char, 4096> bytes{};
    iovec place{ bytes.data(), bytes.size() };
    Control control;
    msghdr message{};
    message.msg_iov = &place;
    message.msg_iovlen = 1;
    message.msg_control = control.space.data();
    message.msg_controllen = control.space.size();
    const ssize_t size = ::recvmsg(m_ours.get(), &message, MSG_CMSG_CLOEXEC);
    for (FileDescriptor& file : filesOf(message))
        m_files.push_back(std::move(file));
    m_bytes.append(bytes.data(), std::max<qsizetype>(size, 0));
    return size > 0;
}

std::size_t HeldRequest::passOn(int socket, const Requests& requests, Clock::time_point deadline)
{
    auto first = requests.begin();
    while (first != requests.end()) {
        std::size_t files = 0;
        const auto end = std::find_if(first, requests.end(), [&](const HeldRequest* request) {
            files += request->m_files.size();
            return files > mostFiles;
        });
        if (!send(socket, first, end, deadline))
            break;
        first = end;
    }
    return static_cast<std::size_t>(first - requests.begin());
}

// The socket takes a message of this size whole or not at all.
bool HeldRequest::send(int socket, Requests::const_iterator first, Requests::const_iterator end,
                       Clock::time_point deadline)
{
    QByteArray bytes;
    std::vector<int> files;
    for (auto request = first; request != end; ++request) {
        bytes += (*request)->m_bytes;
        for (const FileDescriptor& file : (*request)->m_files)
            files.push_back(file.get());
    }
    if (files.empty())
        return false;
    iovec place{ bytes.data(), static_cast<std::size_t>(bytes.size()) };
    Control control;
    msghdr message{};
    message.msg_iov = &place;
    message.msg_iovlen = 1;
    message.msg_control = control.space.data();
    message.msg_controllen = CMSG_SPACE(files.size() * sizeof(int));
    cmsghdr* part = CMSG_FIRSTHDR(&message);
    part->cmsg_level = SOL_SOCKET;
    part->cmsg_type = SCM_RIGHTS;
    part->cmsg_len = CMSG_LEN(files.size() * sizeof(int));
    std::memcpy(CMSG_DATA(part), files.data(), files.size() * sizeof(int));
    ssize_t sent = -1;
    do {
        sent = ::sendmsg(socket, &message, MSG_NOSIGNAL | MSG_DONTWAIT);
    } while (sent < 0 && (errno == EINTR || (errno == EAGAIN && waitToWrite(socket, deadline))));
    return sent == bytes.size();
}

} // namespace nookle
