#include "SelectionReading.h"

#include "FakeDropPayload.h"

#include <QTest>

using namespace nookle;

class SelectionReadingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void filesAndTextAreRead();
    void anEmptySelectionHoldsNothing();
};

void SelectionReadingTest::filesAndTextAreRead()
{
    FakeDropPayload payload;
    payload.offer("text/plain", "a\xc3\xa4").offer("text/uri-list", "file:///a%20b\r\n");
    const ServicePasteboard selection = readSelection(payload);
    QCOMPARE(selection.fileUrls, QList<QUrl>{ QUrl(QStringLiteral("file:///a%20b")) });
    QCOMPARE(selection.strings, QStringList{ QStringLiteral("aä") });
}

void SelectionReadingTest::anEmptySelectionHoldsNothing()
{
    const ServicePasteboard selection = readSelection(FakeDropPayload());
    QVERIFY(selection.fileUrls.isEmpty());
    QVERIFY(selection.strings.isEmpty());
}

QTEST_GUILESS_MAIN(SelectionReadingTest)
#include "SelectionReadingTest.moc"
