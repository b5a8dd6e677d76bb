#include "CleanedSvg.h"

#include <QTest>

using namespace nookle;

class CleanedSvgTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanedDrawingKeepsWhatItHolds();
    void cleanedDrawingLosesWhatReachesBeyondIt_data();
    void cleanedDrawingLosesWhatReachesBeyondIt();
};

void CleanedSvgTest::cleanedDrawingKeepsWhatItHolds()
{
    const QByteArray drawing = "<s:svg xmlns:s=\"http://www.w3.org/2000/svg\" xmlns:x=\"http://www.w3.org/1999/xlink\">"
                               "<s:style>a &lt; b</s:style><s:use x:href=\"#a\"/><s:g fill=\"url(#b)\"/></s:svg>";
    const auto cleaned = cleanedSvg("<?xml version=\"1.0\"?><!DOCTYPE svg><!-- A comment -->" + drawing);
    QVERIFY(cleaned);
    QCOMPARE(*cleaned, drawing);
}

void CleanedSvgTest::cleanedDrawingLosesWhatReachesBeyondIt_data()
{
    QTest::addColumn<QByteArray>("attribute");
    QTest::newRow("path") << QByteArray("href='/etc/passwd'");
    QTest::newRow("relative path") << QByteArray("href='passwd'");
    QTest::newRow("file") << QByteArray("xlink:href='file:///etc/passwd'");
    QTest::newRow("network") << QByteArray("xlink:href='http://example.com/a.png'");
    QTest::newRow("other prefix") << QByteArray("a:href='/etc/passwd'");
    QTest::newRow("resource") << QByteArray("xlink:href=':/a.png'");
    QTest::newRow("white space") << QByteArray("xlink:href='\n /etc/passwd'");
    QTest::newRow("escapes") << QByteArray("xlink:href='&#47;etc&#x2f;passwd'");
    QTest::newRow("entity") << QByteArray("xlink:href='&e;'");
    QTest::newRow("data that are no pixels") << QByteArray("xlink:href='data:image/png;base64,PHN2Zy8+'");
    QTest::newRow("path after data") << QByteArray("xlink:href='data:image/png,/etc/passwd'");
}

void CleanedSvgTest::cleanedDrawingLosesWhatReachesBeyondIt()
{
    QFETCH(const QByteArray, attribute);
    const auto cleaned = cleanedSvg("<!DOCTYPE svg [<!ENTITY e '/etc/passwd'>]><svg><image " + attribute + "/></svg>");
    QCOMPARE(cleaned.value_or("none"), QByteArray("<svg><image/></svg>"));
}

QTEST_GUILESS_MAIN(CleanedSvgTest)
#include "CleanedSvgTest.moc"
