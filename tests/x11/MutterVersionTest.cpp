#include "MutterVersion.h"

#include <QTest>

using namespace nookle;

class MutterVersionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void onlyWhatIsKnownToKeepInputShapesDoes_data();
    void onlyWhatIsKnownToKeepInputShapesDoes();
};

void MutterVersionTest::onlyWhatIsKnownToKeepInputShapesDoes_data()
{
    QTest::addColumn<QByteArray>("version");
    QTest::addColumn<bool>("keeps");
    QTest::newRow("of Debian 12") << QByteArray("43.8") << false;
    QTest::newRow("of Debian 13") << QByteArray("48.7") << true;
    QTest::newRow("the last one that is not known") << QByteArray("47.10") << false;
    QTest::newRow("before a release") << QByteArray("49.beta") << true;
    QTest::newRow("without a point") << QByteArray("50") << true;
    QTest::newRow("three figures") << QByteArray("100.1") << true;
    QTest::newRow("before they had two numbers") << QByteArray("3.38.6") << false;
    QTest::newRow("another compositor") << QByteArray() << false;
    QTest::newRow("no number") << QByteArray("git48") << false;
}

void MutterVersionTest::onlyWhatIsKnownToKeepInputShapesDoes()
{
    QFETCH(QByteArray, version);
    QFETCH(bool, keeps);
    QCOMPARE(keepsInputShapes(version), keeps);
}

QTEST_GUILESS_MAIN(MutterVersionTest)
#include "MutterVersionTest.moc"
