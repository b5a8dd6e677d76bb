#include "TextPayload.h"

#include "PayloadMimeData.h"

#include <QTest>

#include <memory>

using namespace nookle;

class TextPayloadTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aTextIsOfferedAsTextAlone();
    void theToolkitSeesTheSame();
};

namespace {

const QString text = QStringLiteral(" äöü € \U0001F600\r\nline\ttwo\n");

} // namespace

void TextPayloadTest::aTextIsOfferedAsTextAlone()
{
    const DragPayload payload = textPayload(text);
    QCOMPARE(payload.formats(),
             QStringList({ QStringLiteral("text/plain;charset=utf-8"), QStringLiteral("text/plain") }));
    for (const QString& format : payload.formats())
        QCOMPARE(payload.data(format), text.toUtf8());
    QVERIFY(!payload.data(QStringLiteral("text/uri-list")));
}

void TextPayloadTest::theToolkitSeesTheSame()
{
    const PayloadMimeData data(std::make_shared<DragPayload>(textPayload(text)));
    QCOMPARE(data.text(), text);
    QCOMPARE(data.formats(), textPayload(text).formats());
    QVERIFY(!data.hasUrls());
}

QTEST_GUILESS_MAIN(TextPayloadTest)
#include "TextPayloadTest.moc"
