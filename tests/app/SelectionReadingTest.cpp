#include "SelectionReading.h"

#include "FakePasteboard.h"

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
    FakePasteboard pasteboard;
    pasteboard.payload.offer("text/plain", "copied");
    pasteboard.selected.offer("text/plain", "a\xc3\xa4").offer("text/uri-list", "file:///a%20b\r\n");
    const ServicePasteboard selection = readSelection(pasteboard);
    QCOMPARE(selection.fileUrls, QList<QUrl>{ QUrl(QStringLiteral("file:///a%20b")) });
    QCOMPARE(selection.string, QStringLiteral("aä"));
}

void SelectionReadingTest::anEmptySelectionHoldsNothing()
{
    FakePasteboard pasteboard;
    pasteboard.payload.offer("text/plain", "copied");
    const ServicePasteboard selection = readSelection(pasteboard);
    QVERIFY(selection.fileUrls.isEmpty());
    QVERIFY(!selection.string);
}

QTEST_GUILESS_MAIN(SelectionReadingTest)
#include "SelectionReadingTest.moc"
