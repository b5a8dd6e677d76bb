#include "ReplyReader.h"

#include <QTest>
#include <QtEndian>

#include <array>
#include <limits>

using namespace nookle;

class ReplyReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void greetingMayComeInPieces();
    void wrongGreetingIsNonsense();
    void repliesMayComeInPieces();
    void repliesFollowEachOther();
    void replyWithoutImageIsAReply();
    void replyThatDoesNotFitTheRequestIsNonsense_data();
    void replyThatDoesNotFitTheRequestIsNonsense();
    void requestSurvivesTheWay();
    void requestThatNobodyWroteIsRefused_data();
    void requestThatNobodyWroteIsRefused();

private:
    [[nodiscard]] static DecodeRequest request();
};

DecodeRequest ReplyReaderTest::request()
{
    DecodeRequest request;
    request.side = 10;
    request.savedSide = 128;
    request.uri = "file:///a";
    request.modificationTime = -5;
    request.fileSize = std::numeric_limits<qint64>::max();
    return request;
}

void ReplyReaderTest::greetingMayComeInPieces()
{
    ReplyReader reader;
    for (const char byte : decoderGreeting) {
        QVERIFY(std::holds_alternative<ReplyReader::Incomplete>(reader.takeGreeting()));
        reader.append(QByteArrayView(&byte, 1));
    }
    QVERIFY(std::holds_alternative<ReplyReader::Greeted>(reader.takeGreeting()));
    QVERIFY(!reader.hasRest());
}

void ReplyReaderTest::wrongGreetingIsNonsense()
{
    ReplyReader reader;
    reader.append("nookle-decode-2\n");
    QVERIFY(std::holds_alternative<ReplyReader::Nonsense>(reader.takeGreeting()));
}

void ReplyReaderTest::repliesMayComeInPieces()
{
    const DecodeReply reply{ 2, 1, "12345678", "\x89PNG\r\n\x1a\nrest" };
    const QByteArray bytes = reply.encode();
    ReplyReader reader;
    for (const char byte : bytes) {
        QVERIFY(std::holds_alternative<ReplyReader::Incomplete>(reader.takeReply(request())));
        reader.append(QByteArrayView(&byte, 1));
    }
    const auto taken = reader.takeReply(request());
    QVERIFY(std::holds_alternative<DecodeReply>(taken));
    QCOMPARE(std::get<DecodeReply>(taken), reply);
}

void ReplyReaderTest::repliesFollowEachOther()
{
    const DecodeReply first{ 1, 1, "1234", QByteArray() };
    const DecodeReply second{ 1, 1, "5678", QByteArray() };
    ReplyReader reader;
    reader.append(QByteArray(first.encode() + second.encode()));
    QCOMPARE(std::get<DecodeReply>(reader.takeReply(request())), first);
    QCOMPARE(std::get<DecodeReply>(reader.takeReply(request())), second);
    QVERIFY(!reader.hasRest());
}

void ReplyReaderTest::replyWithoutImageIsAReply()
{
    ReplyReader reader;
    reader.append(DecodeReply().encode());
    QCOMPARE(std::get<DecodeReply>(reader.takeReply(request())), DecodeReply());
}

void ReplyReaderTest::replyThatDoesNotFitTheRequestIsNonsense_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("isConversion");
    const auto header = [](quint32 width, quint32 height, quint32 pixels, quint32 png) {
        QByteArray bytes = DecodeReply().encode();
        const std::array numbers{ width, height, pixels, png };
        for (std::size_t index = 0; index < numbers.size(); ++index)
            qToBigEndian(numbers[index], bytes.data() + 4 * (index + 1));
        return bytes;
    };
    constexpr quint32 most = std::numeric_limits<quint32>::max();
    QTest::newRow("other mark") << QByteArray(20, 'x') << false;
    QTest::newRow("too wide") << header(11, 1, 44, 0) << false;
    QTest::newRow("too high") << header(1, 11, 44, 0) << false;
    QTest::newRow("fewer pixels") << header(2, 2, 12, 0) << false;
    QTest::newRow("more pixels") << header(2, 2, 20, 0) << false;
    QTest::newRow("pixels without size") << header(0, 0, 4, 0) << false;
    QTest::newRow("size that overflows") << header(0x8000'0000, 2, 0, 0) << false;
    QTest::newRow("endless pixels") << header(most, most, most, 0) << false;
    QTest::newRow("endless PNG") << header(1, 1, 4, most) << false;
    QTest::newRow("PNG that is none") << DecodeReply{ 1, 1, "1234", "<html>" }.encode() << false;
    QTest::newRow("pixels for a conversion") << header(1, 1, 4, 0) << true;
    QTest::newRow("endless conversion") << header(0, 0, 0, most) << true;
}

void ReplyReaderTest::replyThatDoesNotFitTheRequestIsNonsense()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const bool, isConversion);
    DecodeRequest asked = request();
    if (isConversion)
        asked.purpose = DecodeRequest::Purpose::conversion;
    ReplyReader reader;
    reader.append(bytes);
    QVERIFY(std::holds_alternative<ReplyReader::Nonsense>(reader.takeReply(asked)));
}

void ReplyReaderTest::requestSurvivesTheWay()
{
    QCOMPARE(DecodeRequest::decode(request().encode()), std::optional(request()));
}

void ReplyReaderTest::requestThatNobodyWroteIsRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray good = request().encode();
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("truncated") << good.chopped(1);
    QTest::newRow("longer") << QByteArray(good + 'x');
    QTest::newRow("unknown purpose") << QByteArray('\x07' + good.mid(1));
    QTest::newRow("no side") << QByteArray(good.left(1) + QByteArray(4, '\0') + good.mid(5));
    QTest::newRow("negative side") << QByteArray(good.left(1) + QByteArray(4, '\xff') + good.mid(5));
    QTest::newRow("huge saved side") << QByteArray(good.left(5) + QByteArray(4, '\x7f') + good.mid(9));
}

void ReplyReaderTest::requestThatNobodyWroteIsRefused()
{
    QFETCH(const QByteArray, bytes);
    QCOMPARE(DecodeRequest::decode(bytes), std::nullopt);
}

QTEST_GUILESS_MAIN(ReplyReaderTest)
#include "ReplyReaderTest.moc"
