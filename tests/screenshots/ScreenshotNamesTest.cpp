#include "ScreenshotNames.h"

#include <QTest>

using namespace nookle;

class ScreenshotNamesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void namesThatToolsGiveAreKnown_data();
    void namesThatToolsGiveAreKnown();
    void otherNamesAreNot_data();
    void otherNamesAreNot();
    void aNameInTheUsersLanguageIsKnown();
};

namespace {

void addNames(std::initializer_list<const char*> names)
{
    QTest::addColumn<QByteArray>("name");
    for (const char* name : names)
        QTest::newRow(name) << QByteArray(name);
}

} // namespace

void ScreenshotNamesTest::namesThatToolsGiveAreKnown_data()
{
    addNames({ "Screenshot_20260131_120000.png", "Screenshot_20260131_120000-1.jpg",
               "Screenshot_2026-01-31_12-00-00.png", "Screenshot_2026-01-31_12-00-00(2).png", "2026-01-31_12-00.png",
               "2026-01-31_12-00_1.png", "2026-01-31_12-00-59.png", "ksnip_20260131-120000.png",
               "20260131_12h00m00s_grim.png", "2026-01-31-120000_1920x1080_scrot.png",
               "2026-01-31-120000_1920x1080_scrot_000.png" });
}

void ScreenshotNamesTest::namesThatToolsGiveAreKnown()
{
    QFETCH(const QByteArray, name);
    QVERIFY(isScreenshotName(name, QStringLiteral("Screenshot")));
}

void ScreenshotNamesTest::otherNamesAreNot_data()
{
    addNames({ "", "photo.png", "Screenshot.png", "Screenshot_20260131_120000", "Screenshot_20260131_120000.txt",
               "My Screenshot_20260131_120000.png", "Screenshot_20260131_120000.png.part", "2026-01-31.png",
               "Screenshot_20260131_120000.png\n", "20260131_grim.png", "Screenshot_2026-01-31_12-00-00\xe9.png" });
}

void ScreenshotNamesTest::otherNamesAreNot()
{
    QFETCH(const QByteArray, name);
    QVERIFY(!isScreenshotName(name, QStringLiteral("Screenshot")));
}

void ScreenshotNamesTest::aNameInTheUsersLanguageIsKnown()
{
    const QByteArray name = "Capture d\xe2\x80\x99\xc3\xa9"
                            "cran_2026-01-31_12-00-00-1.png";
    QVERIFY(isScreenshotName(name, QStringLiteral("Capture d’écran")));
    QVERIFY(!isScreenshotName(name, QStringLiteral("Bildschirmfoto")));
    QVERIFY(!isScreenshotName("Capture.png", QStringLiteral("Capture")));
}

QTEST_GUILESS_MAIN(ScreenshotNamesTest)
#include "ScreenshotNamesTest.moc"
