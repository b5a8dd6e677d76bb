#include "ScreenshotMark.h"

#include "PngBytes.h"
#include "TemporaryFolder.h"

#include <QTest>

#include <sys/stat.h>
#include <sys/xattr.h>

using namespace nookle;

class ScreenshotMarkTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anAttributeMarksAnyFile();
    void anAttributeCountsThroughALink();
    void theTextsOfKnownToolsMarkAPicture_data();
    void theTextsOfKnownToolsMarkAPicture();
    void otherTextsDoNot();
    void aPictureThatIsStillBeingWrittenIsNotMarkedYet();
    void theNameOfAToolMarksAPicture_data();
    void theNameOfAToolMarksAPicture();
    void theNameAloneMarksNothing();
    void whatIsNoFileIsNeverMarkedAndNeverWaitedFor();

private:
    TemporaryFolder m_folder;
};

namespace {

void mark(const QByteArray& path)
{
    const int result = ::setxattr(path.constData(), "user.com.apple.metadata:kMDItemIsScreenCapture", "false", 5, 0);
    if (result != 0)
        qFatal("the file system takes no attributes");
}

} // namespace

void ScreenshotMarkTest::anAttributeMarksAnyFile()
{
    const QByteArray path = m_folder.makeFile("letter.txt");
    QVERIFY(!hasScreenshotMark(path));
    mark(path);
    QVERIFY(hasScreenshotMark(path));
}

void ScreenshotMarkTest::anAttributeCountsThroughALink()
{
    const QByteArray path = m_folder.makeFile("target.png");
    const QByteArray link = m_folder.path("link.png");
    makeLink(path, link);
    QVERIFY(!hasScreenshotMark(link));
    mark(path);
    QVERIFY(hasScreenshotMark(link));
}

void ScreenshotMarkTest::theTextsOfKnownToolsMarkAPicture_data()
{
    QTest::addColumn<QByteArray>("chunk");
    QTest::newRow("GNOME") << pngText("Software", "gnome-screenshot");
    QTest::newRow("MATE") << pngText("Software", "mate-screenshot");
    QTest::newRow("Plasma, a window") << pngText("windowTitle", "Letter");
    QTest::newRow("Plasma, a screen") << pngText("screen", "DP-1");
    QTest::newRow("Plasma, an area") << pngText("logicalX", "0");
}

void ScreenshotMarkTest::theTextsOfKnownToolsMarkAPicture()
{
    QFETCH(const QByteArray, chunk);
    QVERIFY(hasScreenshotMark(m_folder.makeFile("any name.png", png(chunk))));
}

void ScreenshotMarkTest::otherTextsDoNot()
{
    QVERIFY(!hasScreenshotMark(m_folder.makeFile("a.png", png())));
    QVERIFY(!hasScreenshotMark(m_folder.makeFile("b.png", png(pngText("Software", "a drawing program")))));
    QVERIFY(!hasScreenshotMark(m_folder.makeFile("c.png", png(pngText("Comment", "gnome-screenshot")))));
}

void ScreenshotMarkTest::aPictureThatIsStillBeingWrittenIsNotMarkedYet()
{
    const QByteArray whole = png(pngText("Software", "gnome-screenshot"));
    QVERIFY(!hasScreenshotMark(m_folder.makeFile("a.png", whole.left(whole.size() - 12))));
    QVERIFY(!hasScreenshotMark(m_folder.makeFile("Screenshot_20260131_120000.png", whole.left(whole.size() - 12))));
    QVERIFY(hasScreenshotMark(m_folder.makeFile("a.png", whole)));
}

void ScreenshotMarkTest::theNameOfAToolMarksAPicture_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("PNG") << QByteArray("Screenshot_2026-01-31_12-00-00.png") << png();
    QTest::newRow("JPEG") << QByteArray("2026-01-31_12-00.jpg") << QByteArray("\xff\xd8\xff\xe0\0\x10JFIF\0", 11);
}

void ScreenshotMarkTest::theNameOfAToolMarksAPicture()
{
    QFETCH(const QByteArray, name);
    QFETCH(const QByteArray, content);
    QVERIFY(hasScreenshotMark(m_folder.makeFile(name, content)));
    QVERIFY(!hasScreenshotMark(m_folder.makeFile("holiday", content)));
}

void ScreenshotMarkTest::theNameAloneMarksNothing()
{
    QVERIFY(!hasScreenshotMark(m_folder.makeFile("Screenshot_20260131_120000.png", "words")));
    QVERIFY(!hasScreenshotMark(m_folder.makeFile("Screenshot_20260131_120001.png", "")));
}

void ScreenshotMarkTest::whatIsNoFileIsNeverMarkedAndNeverWaitedFor()
{
    const QByteArray pipe = m_folder.path("Screenshot_20260131_120009.png");
    QCOMPARE(::mkfifo(pipe.constData(), 0600), 0);
    QVERIFY(!hasScreenshotMark(pipe));
    QVERIFY(!hasScreenshotMark(m_folder.makeFolder("Screenshot_20260131_120008.png")));
    QVERIFY(!hasScreenshotMark(m_folder.path("nowhere.png")));
    QVERIFY(!hasScreenshotMark("/dev/zero"));
    makeLink("nowhere", m_folder.path("Screenshot_20260131_120002.png"));
    QVERIFY(!hasScreenshotMark(m_folder.path("Screenshot_20260131_120002.png")));
}

QTEST_GUILESS_MAIN(ScreenshotMarkTest)
#include "ScreenshotMarkTest.moc"
