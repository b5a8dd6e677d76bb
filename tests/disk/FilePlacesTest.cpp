#include "FilePlaces.h"

#include "MountList.h"
#include "Mounts.h"

#include <QTest>

#include <memory>

using namespace nookle;

class FilePlacesTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void diskAndMemoryAnswer_data();
    void diskAndMemoryAnswer();
    void theFileSystemOfTheRootFolderAnswers();
    void whatIsBehindAServerMayNotAnswer();
    void aMountPointItselfMayNotAnswer();
    void aNameThatBeginsLikeAMountPointIsNoneOfIt();
    void aDiskMountedBehindAServerMayNotAnswer();
    void whatTheKernelEscapesIsRead();
    void theLastMountAtOnePlaceCounts();
    void linesThatAreNoMountsAreSkipped();
    void nothingIsMountedOnTheWay();
    void linksBelowAnAutomountAreNotRead();
    void whatIsMountedBelowAnAutomountIsReached();
    void linksAreFollowedOnTheWay();
    void aLinkInTheLastPlaceIsFollowedOnDemand();
    void linksThatGoUpAreFollowed();
    void linksInACircleEnd();
    void linksBehindAServerAreFollowedByThePatientAlone();
    void theHomeFoldersFileSystemCountsAsAnswering();
    void theKernelsListIsRead();

private:
    [[nodiscard]] FilePlaces places(FilePlaces::Patience patience = FilePlaces::Patience::none) const
    {
        return FilePlaces(std::make_shared<MountTable>(MountTable::parse(m_list->content())), patience);
    }
    [[nodiscard]] FilePlace placeOf(const QByteArray& path, FilePlaces::Links links = FilePlaces::Links::refuse) const
    {
        return places().placeOf(path, links);
    }
    [[nodiscard]] static FilePlace distant(const QByteArray& mountPoint)
    {
        return { FilePlace::Reach::distant, mountPoint };
    }
    [[nodiscard]] static FilePlace unmounted(const QByteArray& mountPoint)
    {
        return { FilePlace::Reach::unmounted, mountPoint };
    }

    std::unique_ptr<MountList> m_list;
    std::unique_ptr<TemporaryFolder> m_folder;
};

namespace {

const FilePlace here{ FilePlace::Reach::here, {} };

} // namespace

void FilePlacesTest::init()
{
    m_list = std::make_unique<MountList>();
    m_folder = std::make_unique<TemporaryFolder>();
}

void FilePlacesTest::diskAndMemoryAnswer_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<bool>("answers");
    for (const char* type :
         { "ext4", "btrfs", "xfs", "vfat", "exfat", "ntfs3", "fuseblk", "iso9660", "overlay", "tmpfs" })
        QTest::newRow(type) << QByteArray(type) << true;
    for (const char* type :
         { "nfs", "nfs4", "cifs", "smb3", "fuse", "fuse.sshfs", "fuse.portal", "9p", "ceph", "afs", "what comes next" })
        QTest::newRow(type) << QByteArray(type) << false;
}

void FilePlacesTest::diskAndMemoryAnswer()
{
    QFETCH(QByteArray, type);
    QFETCH(bool, answers);
    m_list->add("/disk", type.replace(' ', "\\040"));
    QCOMPARE(placeOf("/disk/file"), answers ? here : distant("/disk"));
}

void FilePlacesTest::theFileSystemOfTheRootFolderAnswers()
{
    m_list->add("/", "9p");
    QCOMPARE(placeOf("/file"), here);
    QCOMPARE(placeOf("/"), here);
}

void FilePlacesTest::whatIsBehindAServerMayNotAnswer()
{
    m_list->add("/server", "nfs4");
    QCOMPARE(placeOf("/server/a/b/file"), distant("/server"));
    QCOMPARE(placeOf("/server/a/../b"), distant("/server"));
    QVERIFY(!places().mayLookAt("/server/file", FilePlaces::Links::refuse));
    QVERIFY(places(FilePlaces::Patience::endless).mayLookAt("/server/file", FilePlaces::Links::refuse));
}

void FilePlacesTest::aMountPointItselfMayNotAnswer()
{
    m_list->add("/server", "nfs4");
    QCOMPARE(placeOf("/server"), distant("/server"));
    QCOMPARE(placeOf("/server", FilePlaces::Links::follow), distant("/server"));
}

void FilePlacesTest::aNameThatBeginsLikeAMountPointIsNoneOfIt()
{
    m_list->add("/server", "nfs4");
    QCOMPARE(placeOf("/server2/file"), here);
    QCOMPARE(placeOf("/serve"), here);
}

void FilePlacesTest::aDiskMountedBehindAServerMayNotAnswer()
{
    m_list->add("/server", "nfs4");
    m_list->add("/server/disk", "ext4");
    QCOMPARE(placeOf("/server/disk/file"), distant("/server"));
}

void FilePlacesTest::whatTheKernelEscapesIsRead()
{
    m_list->add("/a\\040b\\011c\\012d\\134e", "nfs");
    QCOMPARE(placeOf("/a b\tc\nd\\e/file"), distant("/a b\tc\nd\\e"));
}

void FilePlacesTest::theLastMountAtOnePlaceCounts()
{
    m_list->add("/server", "nfs");
    m_list->add("/server", "ext4");
    QCOMPARE(placeOf("/server/file"), here);
}

void FilePlacesTest::linesThatAreNoMountsAreSkipped()
{
    const MountTable table = MountTable::parse("\n-\n1 2 3\n27 1 8:1 / /half rw -\n36 27 0:40 / /whole rw - nfs a b");
    QCOMPARE(table.at("/whole"), MountTable::Kind::distant);
    QVERIFY(!table.at("/other"));
}

void FilePlacesTest::nothingIsMountedOnTheWay()
{
    m_list->add("/net", "autofs");
    QCOMPARE(placeOf("/net/host/file"), unmounted("/net"));
    QCOMPARE(placeOf("/net"), unmounted("/net"));
    QVERIFY(!places(FilePlaces::Patience::endless).mayLookAt("/net/host/file", FilePlaces::Links::refuse));
}

void FilePlacesTest::linksBelowAnAutomountAreNotRead()
{
    m_folder->makeFolder("net");
    makeLink("../elsewhere", m_folder->path("net/link"));
    m_list->add(m_folder->path("net"), "autofs");
    const QByteArray path = m_folder->path("net/link/file");
    QCOMPARE(placeOf(path), unmounted(m_folder->path("net")));
    QCOMPARE(places(FilePlaces::Patience::endless).placeOf(path, FilePlaces::Links::follow),
             unmounted(m_folder->path("net")));
}

void FilePlacesTest::whatIsMountedBelowAnAutomountIsReached()
{
    m_list->add("/net", "autofs");
    m_list->add("/net/host/share", "nfs");
    QCOMPARE(placeOf("/net/host/share/file"), distant("/net"));
    QCOMPARE(placeOf("/net/host/file"), unmounted("/net"));
}

void FilePlacesTest::linksAreFollowedOnTheWay()
{
    m_folder->makeFolder("server");
    m_list->add(m_folder->path("server"), "nfs");
    makeLink(m_folder->path("server"), m_folder->path("absolute"));
    makeLink("server/a", m_folder->path("relative"));
    makeLink("relative/b", m_folder->path("twice"));
    for (const QByteArray name : { "absolute/file", "relative/file", "twice/c/file" })
        QCOMPARE(placeOf(m_folder->path(name)), distant(m_folder->path("server")));
}

void FilePlacesTest::aLinkInTheLastPlaceIsFollowedOnDemand()
{
    m_list->add(m_folder->path("server"), "nfs");
    makeLink("server/file", m_folder->path("link"));
    QCOMPARE(placeOf(m_folder->path("link")), here);
    QCOMPARE(placeOf(m_folder->path("link"), FilePlaces::Links::follow), distant(m_folder->path("server")));
}

void FilePlacesTest::linksThatGoUpAreFollowed()
{
    m_folder->makeFolder("a/b");
    m_list->add(m_folder->path("server"), "nfs");
    makeLink("../../server/x", m_folder->path("a/b/away"));
    makeLink("../b", m_folder->path("a/b/back"));
    QCOMPARE(placeOf(m_folder->path("a/b/away/file")), distant(m_folder->path("server")));
    QCOMPARE(placeOf(m_folder->path("a/b/back/back/file")), here);
    QCOMPARE(places().resolved(m_folder->path("a/b/back/back")), m_folder->path("a/b"));
}

void FilePlacesTest::linksInACircleEnd()
{
    makeLink("two/two", m_folder->path("one"));
    makeLink("one/one", m_folder->path("two"));
    QCOMPARE(placeOf(m_folder->path("one/file")), here);
}

void FilePlacesTest::linksBehindAServerAreFollowedByThePatientAlone()
{
    m_folder->makeFolder("server");
    m_list->add(m_folder->path("server"), "nfs");
    m_list->add(m_folder->path("net"), "autofs");
    makeLink("../net/host", m_folder->path("server/link"));
    const QByteArray path = m_folder->path("server/link/file");
    QCOMPARE(placeOf(path), distant(m_folder->path("server")));
    QCOMPARE(places(FilePlaces::Patience::endless).placeOf(path, FilePlaces::Links::refuse),
             unmounted(m_folder->path("net")));
}

void FilePlacesTest::theHomeFoldersFileSystemCountsAsAnswering()
{
    m_folder->makeFolder("home/me");
    makeLink("home/me", m_folder->path("short"));
    m_list->add(m_folder->path("home"), "autofs");
    m_list->add(m_folder->path("home/me"), "nfs4");
    m_list->add(m_folder->path("home/me/server"), "fuse.sshfs");
    m_list->add(m_folder->path("home/you"), "nfs4");
    for (const QByteArray home : { "home/me", "short" }) {
        Mounts mounts(m_folder->path(home), m_list->path());
        const FilePlaces found(mounts.table());
        QCOMPARE(found.placeOf(m_folder->path("home/me/a/file"), FilePlaces::Links::refuse), here);
        QCOMPARE(found.placeOf(m_folder->path("short/file"), FilePlaces::Links::refuse), here);
        QCOMPARE(found.placeOf(m_folder->path("home/me/server/file"), FilePlaces::Links::refuse),
                 distant(m_folder->path("home/me/server")));
        QCOMPARE(found.placeOf(m_folder->path("home/you/file"), FilePlaces::Links::refuse),
                 distant(m_folder->path("home")));
    }
}

void FilePlacesTest::theKernelsListIsRead()
{
    Mounts mounts("/");
    QCOMPARE(mounts.table()->at("/proc"), MountTable::Kind::local);
    QCOMPARE(mounts.table(), mounts.table());
}

QTEST_GUILESS_MAIN(FilePlacesTest)
#include "FilePlacesTest.moc"
