#include "FileUrls.h"

#include "FileUrl.h"

#include <QSet>
#include <QTest>

using namespace nookle;

namespace {

[[nodiscard]] QSet<QUuid> idsAt(const FileUrls& urls, const char* path)
{
    const QList<QUuid> ids = urls.idsAt(path);
    return { ids.begin(), ids.end() };
}

void insert(FileUrls& urls, const QUuid& id, const char* path)
{
    const QUrl url = fileUrl(path);
    urls.insert(id, url, standardizedPath(url));
}

} // namespace

class FileUrlsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyItemAtAPlaceIsFound();
    void aRemovedItemIsNotFoundAnyMore();
    void anItemWithANewPlaceIsFoundThereAlone();
    void replacingAllForgetsTheOldPlaces();

private:
    const QUuid m_first = QUuid::createUuid();
    const QUuid m_second = QUuid::createUuid();
};

void FileUrlsTest::everyItemAtAPlaceIsFound()
{
    FileUrls urls;
    insert(urls, m_first, "/a/b");
    insert(urls, m_second, "/a/c/../b/");
    QCOMPARE(idsAt(urls, "/a/b"), QSet<QUuid>({ m_first, m_second }));
    QCOMPARE(idsAt(urls, "/a"), QSet<QUuid>());
    QCOMPARE(urls.byId().value(m_second), fileUrl("/a/c/../b/"));
}

void FileUrlsTest::aRemovedItemIsNotFoundAnyMore()
{
    FileUrls urls;
    insert(urls, m_first, "/a");
    insert(urls, m_second, "/a");
    QVERIFY(urls.remove(m_first));
    QVERIFY(!urls.remove(m_first));
    QCOMPARE(idsAt(urls, "/a"), QSet<QUuid>{ m_second });
    QCOMPARE(urls.byId().size(), 1);
}

void FileUrlsTest::anItemWithANewPlaceIsFoundThereAlone()
{
    FileUrls urls;
    insert(urls, m_first, "/a");
    insert(urls, m_first, "/b");
    QCOMPARE(idsAt(urls, "/a"), QSet<QUuid>());
    QCOMPARE(idsAt(urls, "/b"), QSet<QUuid>{ m_first });
}

void FileUrlsTest::replacingAllForgetsTheOldPlaces()
{
    FileUrls urls;
    insert(urls, m_first, "/a");
    QVERIFY(!urls.replaceAll({ { m_first, fileUrl("/a") } }));
    QVERIFY(urls.replaceAll({ { m_second, fileUrl("/b") } }));
    QCOMPARE(idsAt(urls, "/a"), QSet<QUuid>());
    QCOMPARE(idsAt(urls, "/b"), QSet<QUuid>{ m_second });
}

QTEST_GUILESS_MAIN(FileUrlsTest)
#include "FileUrlsTest.moc"
