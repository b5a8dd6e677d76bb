#include "IndexFile.h"

#include "TemporaryFolder.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace nookle;

class IndexFileTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anIndexThatComesBackIsStillOurs();
};

void IndexFileTest::anIndexThatComesBackIsStillOurs()
{
    TemporaryFolder folder;
    constexpr qsizetype largestSize = 1000;
    IndexFile file(folder.path(""), largestSize);
    QVERIFY(file.load().isEmpty());
    QVERIFY(!file.makeWay(false));
    const auto written = IndexFile::write({}, file.path(), largestSize);
    file.wasWritten(std::get<IndexStamp>(written));
    QVERIFY(file.isOurs());

    const QString index = QFile::decodeName(file.path());
    const QString away = QString(index + QStringLiteral(".away"));
    QVERIFY(QFile::rename(index, away));
    QVERIFY(QDir().mkdir(index));
    QVERIFY(!file.isOurs());
    QVERIFY(QDir().rmdir(index));
    QVERIFY(QFile::rename(away, index));
    QVERIFY(file.isOurs());
}

QTEST_GUILESS_MAIN(IndexFileTest)
#include "IndexFileTest.moc"
