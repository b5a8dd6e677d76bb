#include "HeldRequest.h"

#include "FileDescriptor.h"

#include <QTest>

#include <fcntl.h>
#include <linux/sockios.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <optional>
#include <thread>
#include <utility>

using namespace nookle;

namespace {

using Clock = HeldRequest::Clock;

inline constexpr std::chrono::milliseconds aMinute{ 60'000 };
/// As long as a test waits for what never comes.
inline constexpr std::chrono::milliseconds moment{ 50 };

[[nodiscard]] QByteArray request(const QByteArray& body)
{
    constexpr std::uint32_t sizeOfHeader = 8;
    const std::array<std::uint32_t, 2> header{ 1, (sizeOfHeader + static_cast<std::uint32_t>(body.size())) << 16 | 1 };
    return QByteArray(reinterpret_cast<const char*>(header.data()), sizeOfHeader) + body;
}

[[nodiscard]] FileDescriptor anyFile()
{
    return FileDescriptor(::open("/dev/null", O_RDWR | O_CLOEXEC));
}

/// Waits until the other side has taken everything that was sent.
void waitUntilTaken(int socket)
{
    for (int left = 1; ::ioctl(socket, SIOCOUTQ, &left) == 0 && left > 0;)
        std::this_thread::yield();
}

/// Two connected sockets.
struct Sockets {
    Sockets()
    {
        std::array<int, 2> ends{ -1, -1 };
        static_cast<void>(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()));
        ours = FileDescriptor(ends[0]);
        theirs = FileDescriptor(ends[1]);
    }

    FileDescriptor ours;
    FileDescriptor theirs;
};

/// Sends bytes with a file, as the toolkit does.
[[nodiscard]] bool sendWithFile(int socket, QByteArray bytes)
{
    const FileDescriptor file = anyFile();
    const int number = file.get();
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> space{};
    iovec place{ bytes.data(), static_cast<std::size_t>(bytes.size()) };
    msghdr message{};
    message.msg_iov = &place;
    message.msg_iovlen = 1;
    message.msg_control = space.data();
    message.msg_controllen = space.size();
    cmsghdr* part = CMSG_FIRSTHDR(&message);
    part->cmsg_level = SOL_SOCKET;
    part->cmsg_type = SCM_RIGHTS;
    part->cmsg_len = CMSG_LEN(sizeof(int));
    std::memcpy(CMSG_DATA(part), &number, sizeof(int));
    return ::sendmsg(socket, &message, MSG_NOSIGNAL) == bytes.size();
}

[[nodiscard]] bool send(int socket, const QByteArray& bytes)
{
    return ::send(socket, bytes.constData(), static_cast<std::size_t>(bytes.size()), MSG_NOSIGNAL) == bytes.size();
}

/// Waits for something, and takes it, without the files; empty at the end.
[[nodiscard]] QByteArray received(int socket)
{
    std::array<char, 4096> bytes{};
    const ssize_t size = ::recv(socket, bytes.data(), bytes.size(), 0);
    return { bytes.data(), std::max<qsizetype>(size, 0) };
}

void fill(int socket)
{
    const QByteArray bytes(4096, 'n');
    while (::send(socket, bytes.constData(), static_cast<std::size_t>(bytes.size()), MSG_DONTWAIT) > 0) {}
}

} // namespace

/// A request is held that the test itself sends in the child's place.
class HeldRequestTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void whatTheChildSendsIsPassedOn();
    void aRequestThatComesInPartsIsPassedOnWhole();
    void aRequestThatDoesNotComeWhollyIsNone();
    void aFullSocketIsWaitedFor();
    void aSocketThatStaysFullIsGivenUp();

private:
    [[nodiscard]] std::size_t passOn(std::chrono::milliseconds patience)
    {
        return HeldRequest::passOn(m_compositor->ours.get(), { &*m_request }, Clock::now() + patience);
    }

    std::optional<HeldRequest> m_request;
    /// The child's socket, which leads to the held request.
    FileDescriptor m_child;
    std::optional<Sockets> m_compositor;
};

void HeldRequestTest::init()
{
    m_request = HeldRequest::tryMake();
    QVERIFY(m_request);
    m_child = anyFile();
    m_request->divert(m_child.get());
    m_compositor.emplace();
}

void HeldRequestTest::whatTheChildSendsIsPassedOn()
{
    const QByteArray bytes = request("one") + request("two");
    QVERIFY(sendWithFile(m_child.get(), bytes));
    QVERIFY(m_request->receive(Clock::now() + aMinute));
    QCOMPARE(passOn(aMinute), std::size_t{ 1 });
    QCOMPARE(received(m_compositor->theirs.get()), bytes);
}

void HeldRequestTest::aRequestThatComesInPartsIsPassedOnWhole()
{
    const QByteArray bytes = request("text/uri-list");
    constexpr qsizetype partOfHeader = 5;
    constexpr qsizetype more = 12;
    QVERIFY(sendWithFile(m_child.get(), bytes.left(partOfHeader)));
    std::thread later([&] {
        waitUntilTaken(m_child.get());
        static_cast<void>(send(m_child.get(), bytes.mid(partOfHeader, more)));
        waitUntilTaken(m_child.get());
        static_cast<void>(send(m_child.get(), bytes.mid(partOfHeader + more)));
    });
    const bool isReceived = m_request->receive(Clock::now() + aMinute);
    later.join();
    QVERIFY(isReceived);
    QCOMPARE(passOn(aMinute), std::size_t{ 1 });
    QCOMPARE(received(m_compositor->theirs.get()), bytes);
}

void HeldRequestTest::aRequestThatDoesNotComeWhollyIsNone()
{
    QVERIFY(sendWithFile(m_child.get(), request("text/uri-list").chopped(1)));
    QVERIFY(!m_request->receive(Clock::now() + moment));
}

void HeldRequestTest::aFullSocketIsWaitedFor()
{
    const QByteArray bytes = request("words");
    QVERIFY(sendWithFile(m_child.get(), bytes));
    QVERIFY(m_request->receive(Clock::now() + aMinute));
    fill(m_compositor->ours.get());
    QByteArray all;
    std::thread reader([&] {
        std::this_thread::sleep_for(moment);
        for (QByteArray some = all; !all.endsWith(bytes); all += some) {
            some = received(m_compositor->theirs.get());
            if (some.isEmpty())
                return;
        }
    });
    const std::size_t sent = passOn(aMinute);
    if (sent == 0)
        ::shutdown(m_compositor->ours.get(), SHUT_RDWR);
    reader.join();
    QCOMPARE(sent, std::size_t{ 1 });
}

void HeldRequestTest::aSocketThatStaysFullIsGivenUp()
{
    QVERIFY(sendWithFile(m_child.get(), request("words")));
    QVERIFY(m_request->receive(Clock::now() + aMinute));
    fill(m_compositor->ours.get());
    QCOMPARE(passOn(moment), std::size_t{ 0 });
}

QTEST_GUILESS_MAIN(HeldRequestTest)
#include "HeldRequestTest.moc"
