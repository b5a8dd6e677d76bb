#include "DecoderProtocol.h"

#include <QTest>

#include <limits>

using namespace nookle;

class DecoderProtocolTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void replySurvivesTheWay_data();
    void replySurvivesTheWay();
    void replyThatDoesNotFitTheRequestIsRefused_data();
    void replyThatDoesNotFitTheRequestIsRefused();
    void pngThatNobodyAskedForIsRefused();
    void requestSurvivesTheWay();
    void requestThatNobodyWroteIsRefused_data();
    void requestThatNobodyWroteIsRefused();

private:
    [[nodiscard]] static DecodeRequest request();
};

DecodeRequest DecoderProtocolTest::request()
{
    DecodeRequest request;
    request.side = 10;
    request.savedSide = 128;
    request.uri = "file:///a";
    request.modificationTime = -5;
    request.fileSize = std::numeric_limits<qint64>::max();
    return request;
}

void DecoderProtocolTest::replySurvivesTheWay_data()
{
    QTest::addColumn<DecodeReply>("reply");
    QTest::newRow("no image") << DecodeReply();
    QTest::newRow("pixels") << DecodeReply{ 1, 1, "1234", QByteArray() };
    QTest::newRow("pixels and PNG") << DecodeReply{ 2, 1, "12345678", "\x89PNG\r\n\x1a\nrest" };
    QTest::newRow("as large as can be") << DecodeReply{ 10, 10, QByteArray(400, 'x'), QByteArray() };
}

void DecoderProtocolTest::replySurvivesTheWay()
{
    QFETCH(const DecodeReply, reply);
    const QByteArray bytes = reply.encode();
    QVERIFY(quint32(bytes.size()) <= DecodeReply::longest(request()));
    QCOMPARE(DecodeReply::decode(bytes, request()), std::optional(reply));
}

void DecoderProtocolTest::replyThatDoesNotFitTheRequestIsRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("isConversion");
    const auto bytes = [](int width, int height, qsizetype pixels) {
        return DecodeReply{ width, height, QByteArray(pixels, 'x'), QByteArray() }.encode();
    };
    const QByteArray good = bytes(1, 1, 4);
    constexpr int most = std::numeric_limits<int>::max();
    QTest::newRow("nothing") << QByteArray() << false;
    QTest::newRow("truncated") << good.chopped(1) << false;
    QTest::newRow("longer") << QByteArray(good + 'x') << false;
    QTest::newRow("length beyond the end") << QByteArray(good.left(8) + QByteArray(4, '\x7f') + good.mid(12)) << false;
    QTest::newRow("too wide") << bytes(11, 1, 44) << false;
    QTest::newRow("too high") << bytes(1, 11, 44) << false;
    QTest::newRow("negative") << bytes(-1, -1, 4) << false;
    QTest::newRow("fewer pixels") << bytes(2, 2, 12) << false;
    QTest::newRow("more pixels") << bytes(2, 2, 20) << false;
    QTest::newRow("pixels without size") << bytes(0, 0, 4) << false;
    QTest::newRow("size that overflows") << bytes(most, 2, 0) << false;
    QTest::newRow("PNG that is none") << DecodeReply{ 1, 1, "1234", "<html>" }.encode() << false;
    QTest::newRow("PNG that is too large")
        << DecodeReply{ 1, 1, "1234", QByteArray("\x89PNG\r\n\x1a\n") + QByteArray(1 << 20, 'x') }.encode() << false;
    QTest::newRow("pixels for a conversion") << good << true;
}

void DecoderProtocolTest::replyThatDoesNotFitTheRequestIsRefused()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const bool, isConversion);
    DecodeRequest asked = request();
    if (isConversion)
        asked.purpose = DecodeRequest::Purpose::conversion;
    QCOMPARE(DecodeReply::decode(bytes, asked), std::nullopt);
}

void DecoderProtocolTest::pngThatNobodyAskedForIsRefused()
{
    DecodeRequest asked = request();
    asked.savedSide = 0;
    const DecodeReply reply{ 1, 1, "1234", "\x89PNG\r\n\x1a\n" };
    QCOMPARE(DecodeReply::decode(reply.encode(), asked), std::nullopt);
}

void DecoderProtocolTest::requestSurvivesTheWay()
{
    QCOMPARE(DecodeRequest::decode(request().encode()), std::optional(request()));
}

void DecoderProtocolTest::requestThatNobodyWroteIsRefused_data()
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

void DecoderProtocolTest::requestThatNobodyWroteIsRefused()
{
    QFETCH(const QByteArray, bytes);
    QCOMPARE(DecodeRequest::decode(bytes), std::nullopt);
}

QTEST_GUILESS_MAIN(DecoderProtocolTest)
#include "DecoderProtocolTest.moc"
