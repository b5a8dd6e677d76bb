#include "WaylandDropPayload.h"

#include "FileDescriptor.h"

#include <QFile>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <utility>

using namespace nookle;

namespace {

using Clock = WaylandDropPayload::Clock;
using Source = WaylandDropPayload::Source;

inline constexpr qsizetype plenty = 50'000'000;
inline constexpr std::chrono::milliseconds aMinute{ 60'000 };
/// As long as a test waits for what never comes.
inline constexpr std::chrono::milliseconds moment{ 50 };

const QString plainText = QStringLiteral("text/plain");

/// Has its bytes made when they are asked for, as the toolkit's data of another program's drop.
class FakeDrop final : public QMimeData {
public:
    explicit FakeDrop(std::function<QByteArray()> deliver)
        : m_deliver(std::move(deliver))
    {
    }

    [[nodiscard]] QStringList formats() const override { return { plainText }; }
    [[nodiscard]] bool hasFormat(const QString& format) const override { return format == plainText; }

protected:
    [[nodiscard]] QVariant retrieveData(const QString& /*format*/, QMetaType /*type*/) const override
    {
        return m_deliver();
    }

private:
    std::function<QByteArray()> m_deliver;
};

[[nodiscard]] QByteArray waitForEver()
{
    for (;;)
        ::pause();
}

[[nodiscard]] QByteArray growForEver()
{
    QByteArray bytes;
    for (;;)
        bytes.append(QByteArray(4096, 'a'));
}

[[nodiscard]] QByteArray die()
{
    ::_exit(EXIT_FAILURE);
}

} // namespace

class WaylandDropPayloadTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_flushes = 0; }

    void theFormatsAreThoseOfTheDropAndTheLinkWithItsTitle();
    void textInUtf8IsAskedForWhereTheToolkitListsPlainText();
    void aFileThatABrowserNamesIsInNoList();
    void eachFormatIsAskedForOnce();
    void whatTheSourceDeliversIsRead_data();
    void whatTheSourceDeliversIsRead();
    void moreThanTheLimitIsNothing();
    void whatDoesNotComeIsGivenUp_data();
    void whatDoesNotComeIsGivenUp();
    void afterTheDeadlineNothingIsAskedFor();
    void withoutAFlushNothingIsAskedFor();
    void aReaderThatFindsALockHeldIsReplaced();
    void whatAnX11ProgramDragsIsNotReadBeforeItsDrop();
    void aCompositorThatTakesNothingNowIsWaitedFor();

private:
    [[nodiscard]] QByteArray read(const std::function<QByteArray()>& deliver, qsizetype limit,
                                  std::chrono::milliseconds patience, bool canFlush = true)
    {
        const FakeDrop drop(deliver);
        const auto flush = [this, canFlush] {
            ++m_flushes;
            return canFlush;
        };
        return WaylandDropPayload(drop, { flush }, Source::waylandProgram, { Clock::now() + patience, limit })
            .data(plainText);
    }

    int m_flushes = 0;
};

void WaylandDropPayloadTest::theFormatsAreThoseOfTheDropAndTheLinkWithItsTitle()
{
    QMimeData drop;
    drop.setData(QStringLiteral("text/uri-list"), "http://127.0.0.1/\r\n");
    const WaylandDropPayload payload(drop, { [] { return true; } }, Source::waylandProgram, {});
    QCOMPARE(payload.formats(), (QStringList{ QStringLiteral("text/uri-list"), QStringLiteral("text/x-moz-url") }));
}

void WaylandDropPayloadTest::textInUtf8IsAskedForWhereTheToolkitListsPlainText()
{
    const QString inUtf8 = QStringLiteral("text/plain;charset=utf-8");
    const auto formatsOf = [](const QStringList& offered, Source source = Source::waylandProgram) {
        QMimeData drop;
        for (const QString& format : offered)
            drop.setData(format, "words");
        return WaylandDropPayload(drop, { [] { return true; } }, source, {}).formats();
    };
    QCOMPARE(formatsOf({ plainText }), (QStringList{ plainText, inUtf8 }));
    QCOMPARE(formatsOf({ inUtf8, plainText }), (QStringList{ inUtf8, plainText }));
    QCOMPARE(formatsOf({ QStringLiteral("text/html") }), QStringList{ QStringLiteral("text/html") });
    // What is asked for in time there is asked for once, and only what is offered.
    QCOMPARE(formatsOf({ plainText }, Source::x11Program), QStringList{ plainText });
}

void WaylandDropPayloadTest::aFileThatABrowserNamesIsInNoList()
{
    const QString list = QStringLiteral("text/uri-list");
    const auto listOf = [&](const QByteArray& addresses, bool isBrowser) {
        QMimeData drop;
        drop.setData(list, addresses);
        if (isBrowser)
            drop.setData(QStringLiteral("text/x-moz-url"), "words");
        return WaylandDropPayload(drop, { [] { return true; } }, Source::waylandProgram, {}).data(list);
    };
    const QByteArray file = "file:///etc/passwd\r\n";
    QCOMPARE(listOf(file, false), file);
    QCOMPARE(listOf(file, true), QByteArray());
    QCOMPARE(listOf("FILE:///etc/passwd", true), QByteArray());
    QCOMPARE(listOf("http://127.0.0.1/\r\n", true), QByteArray("http://127.0.0.1/\r\n"));
    QCOMPARE(listOf(file + file, true), file + file);
}

void WaylandDropPayloadTest::eachFormatIsAskedForOnce()
{
    const FakeDrop drop([] { return QByteArray("words"); });
    const auto flush = [this] {
        ++m_flushes;
        return true;
    };
    const WaylandDropPayload payload(drop, { flush }, Source::waylandProgram, { Clock::now() + aMinute, plenty });
    QCOMPARE(payload.data(plainText), QByteArray("words"));
    QCOMPARE(payload.data(plainText), QByteArray("words"));
    QCOMPARE(m_flushes, 1);
}

void WaylandDropPayloadTest::whatTheSourceDeliversIsRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("a few bytes") << QByteArray("a\0b", 3);
    QTest::newRow("more than a pipe holds") << QByteArray(5'000'000, 'a');
}

void WaylandDropPayloadTest::whatTheSourceDeliversIsRead()
{
    QFETCH(const QByteArray, bytes);
    QVERIFY(read([&] { return bytes; }, plenty, aMinute) == bytes);
    QCOMPARE(m_flushes, 1);
}

void WaylandDropPayloadTest::moreThanTheLimitIsNothing()
{
    const QByteArray bytes(200'000, 'a');
    QCOMPARE(read([&] { return bytes; }, bytes.size() - 1, aMinute), QByteArray());
    QVERIFY(read([&] { return bytes; }, bytes.size(), aMinute) == bytes);
}

void WaylandDropPayloadTest::whatDoesNotComeIsGivenUp_data()
{
    QTest::addColumn<std::function<QByteArray()>>("deliver");
    QTest::addColumn<std::chrono::milliseconds>("patience");
    QTest::newRow("it never comes") << std::function(&waitForEver) << moment;
    QTest::newRow("it grows for ever") << std::function(&growForEver) << aMinute;
    QTest::newRow("the reader dies") << std::function(&die) << aMinute;
}

void WaylandDropPayloadTest::whatDoesNotComeIsGivenUp()
{
    QFETCH(const std::function<QByteArray()>, deliver);
    QFETCH(const std::chrono::milliseconds, patience);
    const auto start = Clock::now();
    QCOMPARE(read(deliver, plenty, patience), QByteArray());
    QVERIFY(patience == aMinute || Clock::now() - start >= moment);
    QVERIFY(Clock::now() - start < aMinute);
}

void WaylandDropPayloadTest::afterTheDeadlineNothingIsAskedFor()
{
    QCOMPARE(read([] { return QByteArray("words"); }, plenty, std::chrono::milliseconds(0)), QByteArray());
    QCOMPARE(m_flushes, 0);
}

void WaylandDropPayloadTest::withoutAFlushNothingIsAskedFor()
{
    QCOMPARE(read([] { return QByteArray("words"); }, plenty, aMinute, false), QByteArray());
    QCOMPARE(m_flushes, 1);
}

void WaylandDropPayloadTest::aReaderThatFindsALockHeldIsReplaced()
{
    const QTemporaryDir folder;
    const QString first = folder.filePath(QStringLiteral("first"));
    // The first reader never gets on.
    const auto flush = [path = first.toLocal8Bit(), test = ::getpid()] {
        if (::getpid() != test && ::open(path.constData(), O_CREAT | O_EXCL | O_CLOEXEC, 0600) >= 0)
            static_cast<void>(waitForEver());
        return true;
    };
    const FakeDrop drop([] { return QByteArray("words"); });
    QCOMPARE(
        WaylandDropPayload(drop, { flush }, Source::waylandProgram, { Clock::now() + aMinute, plenty }).data(plainText),
        QByteArray("words"));
    QVERIFY(QFile::exists(first));
}

void WaylandDropPayloadTest::whatAnX11ProgramDragsIsNotReadBeforeItsDrop()
{
    const FakeDrop drop([] { return QByteArray("words"); });
    const auto flush = [this] {
        ++m_flushes;
        return false;
    };
    const WaylandDropPayload payload(drop, { flush }, Source::x11Program, { Clock::now() + aMinute, plenty });
    QCOMPARE(payload.data(plainText), QByteArray());
    QCOMPARE(m_flushes, 0);
    payload.expect({ plainText });
    QCOMPARE(m_flushes, 1);
}

void WaylandDropPayloadTest::aCompositorThatTakesNothingNowIsWaitedFor()
{
    std::array<int, 2> ends{};
    QCOMPARE(::pipe(ends.data()), 0);
    const FileDescriptor reading(ends[0]);
    const FileDescriptor writing(ends[1]);
    const FakeDrop drop([] { return QByteArray("words"); });
    const auto flush = [this] { return ++m_flushes > 1; };
    const WaylandDropPayload payload(drop, { flush, writing.get() }, Source::waylandProgram,
                                     { Clock::now() + aMinute, plenty });
    QCOMPARE(payload.data(plainText), QByteArray("words"));
    QCOMPARE(m_flushes, 2);
}

QTEST_GUILESS_MAIN(WaylandDropPayloadTest)
#include "WaylandDropPayloadTest.moc"
