#include "FrameReader.h"

#include <QTest>

using namespace nookle;

class FrameReaderTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everythingMayComeInPieces();
    void anotherGreetingIsNonsense();
    void messagesFollowEachOther();
    void aLongMessageIsNonsenseBeforeItHasCome();
};

void FrameReaderTest::everythingMayComeInPieces()
{
    FrameReader reader;
    for (const char byte : QByteArray("hell")) {
        reader.append(QByteArray(1, byte));
        QVERIFY(std::holds_alternative<FrameReader::Incomplete>(reader.takeGreeting("hello")));
    }
    reader.append("o");
    QVERIFY(std::holds_alternative<FrameReader::Greeted>(reader.takeGreeting("hello")));
    QVERIFY(!reader.hasRest());
    for (const char byte : QByteArray("\0\0\0\3ab", 6)) {
        reader.append(QByteArray(1, byte));
        QVERIFY(std::holds_alternative<FrameReader::Incomplete>(reader.takeMessage(3)));
    }
    reader.append("c");
    QCOMPARE(std::get<QByteArray>(reader.takeMessage(3)), "abc");
    QVERIFY(!reader.hasRest());
}

void FrameReaderTest::anotherGreetingIsNonsense()
{
    FrameReader reader;
    reader.append("hex");
    QVERIFY(std::holds_alternative<FrameReader::Nonsense>(reader.takeGreeting("hello")));
}

void FrameReaderTest::messagesFollowEachOther()
{
    FrameReader reader;
    reader.append(QByteArray("\0\0\0\1a\0\0\0\0\0\0\0\2bc\0", 16));
    QCOMPARE(std::get<QByteArray>(reader.takeMessage(2)), "a");
    QCOMPARE(std::get<QByteArray>(reader.takeMessage(2)), "");
    QCOMPARE(std::get<QByteArray>(reader.takeMessage(2)), "bc");
    QVERIFY(std::holds_alternative<FrameReader::Incomplete>(reader.takeMessage(2)));
    QVERIFY(reader.hasRest());
}

void FrameReaderTest::aLongMessageIsNonsenseBeforeItHasCome()
{
    FrameReader reader;
    reader.append(QByteArray("\0\0\0\3", 4));
    QVERIFY(std::holds_alternative<FrameReader::Nonsense>(reader.takeMessage(2)));
}

QTEST_GUILESS_MAIN(FrameReaderTest)
#include "FrameReaderTest.moc"
