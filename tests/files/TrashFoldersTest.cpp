#include "TrashFolders.h"

#include "TemporaryFolder.h"

#include <QTest>

using namespace nookle;

class TrashFoldersTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theDataFoldersVolumeHasItsTrashThere();
    void missingFoldersDoNotMatter();
    void linksOnTheWayLeadToTheVolume();
    void anotherVolumeHasItsTrashAtItsTop();
};

void TrashFoldersTest::theDataFoldersVolumeHasItsTrashThere()
{
    const TemporaryFolder home;
    const std::vector<QByteArray> expected{ home.path("Trash/files") };
    QCOMPARE(trashFolders(home.path("file"), home.path()), expected);
}

void TrashFoldersTest::missingFoldersDoNotMatter()
{
    const TemporaryFolder home;
    const std::vector<QByteArray> expected{ home.path("Trash/files") };
    QCOMPARE(trashFolders(home.path("gone/and gone/file"), home.path()), expected);
}

void TrashFoldersTest::linksOnTheWayLeadToTheVolume()
{
    const TemporaryFolder home;
    makeLink("/proc", home.path("link"));
    const std::vector<QByteArray> there = trashFolders(home.path("link/file"), home.path());
    QCOMPARE(there, trashFolders("/proc/file", home.path()));
    QVERIFY(there != std::vector<QByteArray>{ home.path("Trash/files") });
}

void TrashFoldersTest::anotherVolumeHasItsTrashAtItsTop()
{
    const TemporaryFolder home;
    const QByteArray user = QByteArray::number(::getuid());
    const std::vector<QByteArray> expected{ "/proc/.Trash/" + user + "/files", "/proc/.Trash-" + user + "/files" };
    QCOMPARE(trashFolders("/proc/self/file", home.path()), trashFolders("/proc/file", home.path()));
    QCOMPARE(trashFolders("/proc/sys/absent/file", home.path()), expected);
}

QTEST_GUILESS_MAIN(TrashFoldersTest)
#include "TrashFoldersTest.moc"
