#include "BridgedDrop.h"

#include "FileDescriptor.h"

#include <QTest>

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <functional>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

using namespace nookle;

namespace {

using Clock = BridgedDrop::Clock;

inline constexpr std::chrono::milliseconds aMinute{ 60'000 };
/// As long as a test waits for what never comes.
inline constexpr std::chrono::milliseconds moment{ 400 };

const QString list = QStringLiteral("text/uri-list");
const QString words = QStringLiteral("text/plain");
const QString bytes = QStringLiteral("application/octet-stream");

/// A format that the source does not have, so that the toolkit does not ask for it.
const QString unoffered = QStringLiteral("image/bmp");
/// A format that the source refuses: no answer comes, and no end.
const QString refused = QStringLiteral("image/png");
/// A question whose second asking gets an end without an answer, a moment before the first one gets its answer.
const QString answeredLate = QStringLiteral("text/late");
/// A format that the toolkit takes its time to ask for.
const QString askedLate = QStringLiteral("text/slow");
/// A format whose answer is more than a pipe holds.
const QString large = QStringLiteral("text/large");
inline constexpr qsizetype largeSize = 300'000;

/// As much as one message has.
inline constexpr std::size_t mostFiles = 28;

struct Control {
    alignas(cmsghdr) std::array<char, CMSG_SPACE(mostFiles * sizeof(int))> space{};
};

/// Both are as long as in Wayland's requests: the object, and the size above the number of the operation.
inline constexpr qsizetype sizeOfNumber = 4;
inline constexpr qsizetype sizeOfHeader = 2 * sizeOfNumber;

[[nodiscard]] QByteArray requestFor(const QString& format)
{
    const QByteArray name = format.toUtf8();
    const std::array<std::uint32_t, 2> header{ 1, static_cast<std::uint32_t>(sizeOfHeader + name.size()) << 16 | 1 };
    return QByteArray(reinterpret_cast<const char*>(header.data()), sizeOfHeader) + name;
}

/// The formats that whole requests ask for.
[[nodiscard]] QByteArrayList formatsIn(const QByteArray& requests)
{
    QByteArrayList formats;
    for (qsizetype start = 0; start + sizeOfHeader <= requests.size();) {
        std::uint32_t size = 0;
        std::memcpy(&size, requests.constData() + start + sizeOfNumber, sizeof(size));
        size >>= 16;
        formats << requests.mid(start + sizeOfHeader, size - sizeOfHeader);
        start += size;
    }
    return formats;
}

/// Sends a request for a format with the pipe that the answer is to come by, as the toolkit does, and reads the answer.
[[nodiscard]] QByteArray askAndRead(int socket, const QString& format)
{
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0)
        return {};
    QByteArray request = requestFor(format);
    iovec place{ request.data(), static_cast<std::size_t>(request.size()) };
    Control control;
    msghdr message{};
    message.msg_iov = &place;
    message.msg_iovlen = 1;
    message.msg_control = control.space.data();
    message.msg_controllen = CMSG_SPACE(sizeof(int));
    cmsghdr* part = CMSG_FIRSTHDR(&message);
    part->cmsg_level = SOL_SOCKET;
    part->cmsg_type = SCM_RIGHTS;
    part->cmsg_len = CMSG_LEN(sizeof(int));
    std::memcpy(CMSG_DATA(part), &ends[1], sizeof(int));
    if (::sendmsg(socket, &message, MSG_NOSIGNAL) != request.size())
        return {};
    ::close(ends[1]);
    QByteArray answer;
    std::array<char, 256> chunk{};
    for (ssize_t size = 0; (size = ::read(ends[0], chunk.data(), chunk.size())) > 0;)
        answer.append(chunk.data(), size);
    return answer;
}

/// A compositor that answers each question with its format's name, from the second time on that it is asked, or from
/// the first.
class FakeCompositor final {
public:
    explicit FakeCompositor(int deafTo)
        : m_deafTo(deafTo)
    {
        std::array<int, 2> ends{};
        // A child that is not needed any more is ended while its answer is written.
        std::signal(SIGPIPE, SIG_IGN);
        if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
            return;
        m_own = FileDescriptor(ends[0]);
        m_toolkits = FileDescriptor(ends[1]);
        m_thread = std::thread([this] { run(); });
    }
    ~FakeCompositor() { static_cast<void>(end()); }
    FakeCompositor(const FakeCompositor&) = delete;
    FakeCompositor& operator=(const FakeCompositor&) = delete;

    [[nodiscard]] int socket() const { return m_toolkits.get(); }

    /// The questions of each message, once nothing more comes.
    [[nodiscard]] QList<QByteArrayList> end()
    {
        if (m_thread.joinable()) {
            ::shutdown(m_toolkits.get(), SHUT_RDWR);
            m_thread.join();
        }
        m_unanswered.clear();
        for (auto& answer : m_answers) {
            if (answer.joinable())
                answer.join();
        }
        return m_messages;
    }

private:
    void run()
    {
        std::array<char, 4096> chunk{};
        for (;;) {
            iovec place{ chunk.data(), chunk.size() };
            Control control;
            msghdr message{};
            message.msg_iov = &place;
            message.msg_iovlen = 1;
            message.msg_control = control.space.data();
            message.msg_controllen = control.space.size();
            const ssize_t size = ::recvmsg(m_own.get(), &message, MSG_CMSG_CLOEXEC);
            if (size <= 0)
                return;
            const cmsghdr* part = CMSG_FIRSTHDR(&message);
            answer(formatsIn(QByteArray(chunk.data(), size)), part ? CMSG_DATA(part) : nullptr);
        }
    }

    void answer(const QByteArrayList& questions, const unsigned char* files)
    {
        m_messages.append(questions);
        for (qsizetype question = 0; files && question < questions.size(); ++question) {
            int number = -1;
            std::memcpy(&number, files + question * static_cast<qsizetype>(sizeof(int)), sizeof(int));
            FileDescriptor pipe(number);
            const QByteArray& format = questions[question];
            if (m_messages.size() <= m_deafTo || format == refused.toUtf8()) {
                m_unanswered.push_back(std::move(pipe));
                continue;
            }
            if (format == answeredLate.toUtf8() && !m_late) {
                m_late = std::move(pipe);
                continue;
            }
            if (format == answeredLate.toUtf8()) {
                pipe = FileDescriptor();
                std::this_thread::sleep_for(moment / 8);
                pipe = std::move(*m_late);
            }
            // Each answer has its own thread, as a compositor answers all at the same time.
            m_answers.emplace_back([pipe = std::move(pipe), format] {
                const QByteArray answer = format == large.toUtf8() ? QByteArray(largeSize, 'n') : format;
                for (qsizetype done = 0; done < answer.size();) {
                    const ssize_t size =
                        ::write(pipe.get(), answer.constData() + done, static_cast<std::size_t>(answer.size() - done));
                    if (size <= 0)
                        return;
                    done += size;
                }
            });
        }
    }

    int m_deafTo;
    FileDescriptor m_own;
    FileDescriptor m_toolkits;
    std::vector<FileDescriptor> m_unanswered;
    std::optional<FileDescriptor> m_late;
    std::vector<std::thread> m_answers;
    QList<QByteArrayList> m_messages;
    std::thread m_thread;
};

[[nodiscard]] BridgedDrop dropAt(const FakeCompositor& compositor, std::chrono::milliseconds patience)
{
    const auto makeWork = [socket = compositor.socket()](const QString& format) {
        return ReadingChild::Work{ [] {},
                                   [socket, format] {
                                       if (format == unoffered)
                                           return QByteArray();
                                       if (format == askedLate)
                                           std::this_thread::sleep_for(moment / 2 + moment / 8);
                                       return askAndRead(socket, format);
                                   } };
    };
    return { makeWork, compositor.socket(), { Clock::now() + patience, qsizetype{ 1024 } * 1024 } };
}

} // namespace

class BridgedDropTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theQuestionsAreAskedInOneMessage();
    void aQuestionThatWasNotExpectedIsAskedAlone();
    void whatIsNotAnsweredIsAskedAgain();
    void whatIsNeverAnsweredIsGivenUp();
    void whatIsRefusedCostsLittle();
    void whatHasComeIsTakenAfterTheDeadline();
    void largeAnswersDoNotWaitForEachOther();
    void whatIsNotOfferedCostsLittle();
    void moreQuestionsThanOneMessageHolds();
    void anEndIsNoAnswerWhileAnotherMayCome();
    void whoAsksLateIsWaitedFor();
    void whatCannotBeAskedForIsGivenUpAtOnce();
    void aCompositorThatReadsNothingIsNotWaitedForAfterTheDeadline();
};

void BridgedDropTest::theQuestionsAreAskedInOneMessage()
{
    FakeCompositor compositor(0);
    BridgedDrop drop = dropAt(compositor, aMinute);
    drop.ask({ list, bytes, words });
    QCOMPARE(drop.answer(words), words.toUtf8());
    QCOMPARE(drop.answer(list), list.toUtf8());
    QCOMPARE(drop.answer(bytes), bytes.toUtf8());
    QCOMPARE(compositor.end(), (QList<QByteArrayList>{ { list.toUtf8(), bytes.toUtf8(), words.toUtf8() } }));
}

void BridgedDropTest::aQuestionThatWasNotExpectedIsAskedAlone()
{
    FakeCompositor compositor(0);
    BridgedDrop drop = dropAt(compositor, aMinute);
    QCOMPARE(drop.answer(words), words.toUtf8());
    QCOMPARE(compositor.end(), (QList<QByteArrayList>{ { words.toUtf8() } }));
}

void BridgedDropTest::whatIsNotAnsweredIsAskedAgain()
{
    FakeCompositor compositor(1);
    BridgedDrop drop = dropAt(compositor, aMinute);
    drop.ask({ list, words });
    QCOMPARE(drop.answer(words), words.toUtf8());
    const auto messages = compositor.end();
    QVERIFY(messages.size() >= 2);
    QCOMPARE(messages.constLast(), QByteArrayList{ words.toUtf8() });
}

void BridgedDropTest::whatIsNeverAnsweredIsGivenUp()
{
    FakeCompositor compositor(100);
    BridgedDrop drop = dropAt(compositor, moment);
    drop.ask({ words });
    const auto start = Clock::now();
    QCOMPARE(drop.answer(words), QByteArray());
    QVERIFY(Clock::now() - start < aMinute);
    QVERIFY(compositor.end().size() >= 2);
}

void BridgedDropTest::whatIsRefusedCostsLittle()
{
    FakeCompositor compositor(0);
    BridgedDrop drop = dropAt(compositor, aMinute);
    drop.ask({ refused, words });
    const auto start = Clock::now();
    QCOMPARE(drop.answer(refused), QByteArray());
    QCOMPARE(drop.answer(words), words.toUtf8());
    QVERIFY(Clock::now() - start < aMinute / 4);
}

void BridgedDropTest::whatHasComeIsTakenAfterTheDeadline()
{
    FakeCompositor compositor(0);
    BridgedDrop drop = dropAt(compositor, moment);
    drop.ask({ words });
    std::this_thread::sleep_for(moment);
    QCOMPARE(drop.answer(words), words.toUtf8());
}

void BridgedDropTest::largeAnswersDoNotWaitForEachOther()
{
    FakeCompositor compositor(0);
    BridgedDrop drop = dropAt(compositor, aMinute);
    drop.ask({ words, large, list });
    const auto start = Clock::now();
    QCOMPARE(drop.answer(words), words.toUtf8());
    QCOMPARE(drop.answer(list), list.toUtf8());
    QCOMPARE(drop.answer(large).size(), largeSize);
    QVERIFY(Clock::now() - start < aMinute / 4);
    // None was asked again.
    QCOMPARE(compositor.end().size(), 1);
}

void BridgedDropTest::whatIsNotOfferedCostsLittle()
{
    FakeCompositor compositor(0);
    BridgedDrop drop = dropAt(compositor, aMinute);
    const auto start = Clock::now();
    drop.ask({ unoffered, words });
    // Who asks late is waited for that long.
    QVERIFY(Clock::now() - start < moment);
    QCOMPARE(drop.answer(unoffered), QByteArray());
    QCOMPARE(drop.answer(words), words.toUtf8());
}

void BridgedDropTest::moreQuestionsThanOneMessageHolds()
{
    constexpr int more = 30;
    FakeCompositor compositor(0);
    BridgedDrop drop = dropAt(compositor, aMinute);
    QStringList formats;
    for (int number = 0; number < more; ++number)
        formats << QStringLiteral("text/%1").arg(number);
    drop.ask(formats);
    for (const QString& format : formats)
        QCOMPARE(drop.answer(format), format.toUtf8());
    QCOMPARE(compositor.end().constFirst().size(), qsizetype{ mostFiles });
}

void BridgedDropTest::anEndIsNoAnswerWhileAnotherMayCome()
{
    FakeCompositor compositor(0);
    BridgedDrop drop = dropAt(compositor, aMinute);
    drop.ask({ answeredLate });
    QCOMPARE(drop.answer(answeredLate), answeredLate.toUtf8());
}

void BridgedDropTest::whoAsksLateIsWaitedFor()
{
    FakeCompositor compositor(0);
    BridgedDrop drop = dropAt(compositor, aMinute);
    drop.ask({ askedLate, words });
    QCOMPARE(drop.answer(words), words.toUtf8());
    QCOMPARE(drop.answer(askedLate), askedLate.toUtf8());
    QCOMPARE(compositor.end(), (QList<QByteArrayList>{ { askedLate.toUtf8(), words.toUtf8() } }));
}

void BridgedDropTest::whatCannotBeAskedForIsGivenUpAtOnce()
{
    FakeCompositor compositor(0);
    int times = 0;
    const auto makeWork = [&times](const QString& /*format*/) -> std::optional<ReadingChild::Work> {
        ++times;
        return std::nullopt;
    };
    BridgedDrop drop(makeWork, compositor.socket(), { Clock::now() + aMinute, qsizetype{ 1024 } });
    QVERIFY(!drop.ask({ list, words }));
    QCOMPARE(times, 1);
    QCOMPARE(drop.answer(words), QByteArray());
    QCOMPARE(times, 2);
}

void BridgedDropTest::aCompositorThatReadsNothingIsNotWaitedForAfterTheDeadline()
{
    std::array<int, 2> ends{};
    QCOMPARE(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0);
    const FileDescriptor toolkits(ends[0]);
    const FileDescriptor compositors(ends[1]);
    const QByteArray waiting(4096, 'n');
    while (::send(toolkits.get(), waiting.constData(), static_cast<std::size_t>(waiting.size()), MSG_DONTWAIT) > 0) {}
    const auto makeWork = [socket = toolkits.get()](const QString& format) {
        return ReadingChild::Work{ [] {}, [socket, format] { return askAndRead(socket, format); } };
    };
    BridgedDrop drop(makeWork, toolkits.get(), { Clock::now() + moment, qsizetype{ 1024 } });
    QVERIFY(!drop.ask({ words }));
    QCOMPARE(drop.answer(words), QByteArray());
}

QTEST_GUILESS_MAIN(BridgedDropTest)
#include "BridgedDropTest.moc"
