#include "X11SelectionReader.h"

#include "PrivateDesktop.h"
#include "SelectionSource.h"

#include <QCoreApplication>
#include <QTest>

#include <memory>

using namespace nookle;
using namespace nookle::e2e;

class X11SelectionReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_reader = X11SelectionReader::tryCreate();
        QVERIFY(m_reader);
    }

    void whatTheOwnerDeliversIsRead();
    void whatComesInPiecesIsReadWhole();
    void fiftyMegabytesAreReadWhole();
    void aRefusalIsNothing();
    void aSelectionWithoutAnOwnerIsNothing();
    void moreThanTheLimitIsNothing();
    void anOwnerThatDoesNotAnswerIsGivenUpAtTheDeadline_data();
    void anOwnerThatDoesNotAnswerIsGivenUpAtTheDeadline();
    void theNextReadDoesNotTakeTheAnswerToTheLast();

private:
    using Clock = X11SelectionReader::Clock;

    [[nodiscard]] std::optional<QByteArray> read(const SelectionSource& source, qsizetype limit,
                                                 std::chrono::milliseconds patience)
    {
        return m_reader->read(source.selection(), XCB_ATOM_STRING, XCB_CURRENT_TIME, limit, Clock::now() + patience);
    }

    static constexpr qsizetype plenty = 100'000'000;
    static constexpr std::chrono::milliseconds aMinute{ 60'000 };

    std::unique_ptr<X11SelectionReader> m_reader;
};

void X11SelectionReaderTest::whatTheOwnerDeliversIsRead()
{
    const SelectionSource source("NOOKLE_TEST", QByteArray("a\0b", 3), SelectionSource::Manner::whole);
    QCOMPARE(read(source, plenty, aMinute), QByteArray("a\0b", 3));
    QCOMPARE(read(source, plenty, aMinute), QByteArray("a\0b", 3));
}

void X11SelectionReaderTest::whatComesInPiecesIsReadWhole()
{
    QByteArray bytes;
    for (int index = 0; index < 100'000; ++index)
        bytes += QByteArray::number(index);
    const SelectionSource source("NOOKLE_TEST", bytes, SelectionSource::Manner::inPieces);
    QCOMPARE(read(source, plenty, aMinute), bytes);
}

void X11SelectionReaderTest::fiftyMegabytesAreReadWhole()
{
    const QByteArray bytes(50'000'000, 'a');
    const SelectionSource source("NOOKLE_TEST", bytes, SelectionSource::Manner::inPieces);
    QVERIFY(read(source, plenty, aMinute) == bytes);
}

void X11SelectionReaderTest::aRefusalIsNothing()
{
    const SelectionSource source("NOOKLE_TEST", "bytes", SelectionSource::Manner::refusing);
    QVERIFY(!read(source, plenty, aMinute));
}

void X11SelectionReaderTest::aSelectionWithoutAnOwnerIsNothing()
{
    std::uint32_t selection = 0;
    {
        const SelectionSource source("NOOKLE_TEST", "bytes", SelectionSource::Manner::whole);
        selection = source.selection();
    }
    QVERIFY(!m_reader->read(selection, XCB_ATOM_STRING, XCB_CURRENT_TIME, plenty, Clock::now() + aMinute));
}

void X11SelectionReaderTest::moreThanTheLimitIsNothing()
{
    const QByteArray bytes(200'000, 'a');
    for (const auto manner : { SelectionSource::Manner::whole, SelectionSource::Manner::inPieces }) {
        const SelectionSource source("NOOKLE_TEST", bytes, manner);
        QVERIFY(!read(source, bytes.size() - 4, aMinute));
        QVERIFY(read(source, bytes.size(), aMinute));
    }
}

void X11SelectionReaderTest::anOwnerThatDoesNotAnswerIsGivenUpAtTheDeadline_data()
{
    QTest::addColumn<SelectionSource::Manner>("manner");
    QTest::newRow("silent") << SelectionSource::Manner::silent;
    QTest::newRow("dying midway") << SelectionSource::Manner::dyingMidway;
    QTest::newRow("stuck midway") << SelectionSource::Manner::stuckMidway;
}

void X11SelectionReaderTest::anOwnerThatDoesNotAnswerIsGivenUpAtTheDeadline()
{
    QFETCH(SelectionSource::Manner, manner);
    const SelectionSource source("NOOKLE_TEST", QByteArray(200'000, 'a'), manner);
    const auto start = Clock::now();
    QVERIFY(!read(source, plenty, std::chrono::milliseconds(200)));
    QVERIFY(Clock::now() - start >= std::chrono::milliseconds(200));
}

void X11SelectionReaderTest::theNextReadDoesNotTakeTheAnswerToTheLast()
{
    {
        const SelectionSource source("NOOKLE_TEST", "late", SelectionSource::Manner::whole);
        // A quick source may answer all the same.
        static_cast<void>(read(source, plenty, std::chrono::milliseconds(0)));
    }
    const SelectionSource source("NOOKLE_TEST", "next", SelectionSource::Manner::whole);
    QCOMPARE(read(source, plenty, aMinute), QByteArray("next"));
}

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    const auto desktop = PrivateDesktop::tryCreate({});
    if (!desktop)
        return EXIT_FAILURE;
    qputenv("DISPLAY", desktop->environment().value(QStringLiteral("DISPLAY")).toLatin1());
    X11SelectionReaderTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "X11SelectionReaderTest.moc"
