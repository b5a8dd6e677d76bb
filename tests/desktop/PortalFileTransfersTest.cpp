#include "PortalFileTransfers.h"

#include "FileUrl.h"
#include "MountList.h"
#include "Mounts.h"
#include "PrivateBus.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusError>
#include <QDBusMetaType>
#include <QDBusUnixFileDescriptor>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <algorithm>
#include <memory>

using namespace nookle;

/// The portal as the bus knows it, on a thread of its own: the program waits for some of its answers.
class FakePortal : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.FileTransfer")

public:
    Q_SLOT QString StartTransfer(const QVariantMap& /*options*/)
    {
        if (refuses)
            sendErrorReply(QDBusError::AccessDenied);
        return QStringLiteral("12345");
    }

    Q_SLOT void AddFiles(const QString& key, const QList<QDBusUnixFileDescriptor>& files,
                         const QVariantMap& /*options*/)
    {
        if (refuses)
            sendErrorReply(QDBusError::AccessDenied);
        addedKey = key;
        mostAtATime = std::max(mostAtATime, files.size());
        for (const QDBusUnixFileDescriptor& file : files) {
            const QString link = QStringLiteral("/proc/self/fd/%1").arg(file.fileDescriptor());
            added.append(QFile::symLinkTarget(link));
        }
    }

    Q_SLOT QStringList RetrieveFiles(const QString& key, const QVariantMap& /*options*/)
    {
        if (isSilent)
            setDelayedReply(true);
        if (key != QStringLiteral("12345"))
            sendErrorReply(QDBusError::AccessDenied);
        return { QStringLiteral("/home/a b.txt"), QStringLiteral("/home/ü%.txt") };
    }

    std::atomic<bool> refuses = false;
    std::atomic<bool> isSilent = false;
    QString addedKey;
    QStringList added;
    qsizetype mostAtATime = 0;
};

class PortalFileTransfersTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void withoutAPortalThereAreNoTransfers();
    void anAddedFileIsHandedOverOpen();
    void manyFilesAreHandedOverFewAtATime();
    void aFileThatIsGoneIsNotAdded();
    void aFileThatMayNotAnswerIsNotAdded();
    void foldersAndWhatMayNotAnswerAreNotHandedOver();
    void aRefusalIsNoKey();
    void aFileThatThePortalRefusesIsNotAdded();
    void aPortalThatFailedOnceIsFoundWhenItRuns();
    void retrievedFilesHaveTheirNames();
    void aKeyThatIsUsedUpRetrievesNothing();
    void aPortalThatDoesNotAnswerIsGivenUp();

private:
    void startPortal();
    [[nodiscard]] std::optional<QList<QUrl>> retrieve(const QByteArray& key, int& answers);

    QTemporaryDir m_folder;
    PrivateBus m_bus;
    QThread m_thread;
    std::unique_ptr<FakePortal> m_portal;
    std::unique_ptr<PortalFileTransfers> m_transfers;
};

namespace {

const QString serviceConnection = QStringLiteral("portal");

} // namespace

void PortalFileTransfersTest::initTestCase()
{
    qDBusRegisterMetaType<QList<QDBusUnixFileDescriptor>>();
    QVERIFY(!m_bus.address().isEmpty());
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.address());
    m_thread.start();
}

void PortalFileTransfersTest::cleanupTestCase()
{
    m_thread.quit();
    m_thread.wait();
}

void PortalFileTransfersTest::init()
{
    m_transfers = std::make_unique<PortalFileTransfers>(std::make_shared<Mounts>("/"));
}

void PortalFileTransfersTest::cleanup()
{
    m_transfers.reset();
    QDBusConnection::disconnectFromBus(serviceConnection);
    if (m_portal)
        QMetaObject::invokeMethod(
            m_portal.get(), [this] { m_portal.reset(); }, Qt::BlockingQueuedConnection);
}

void PortalFileTransfersTest::startPortal()
{
    m_portal = std::make_unique<FakePortal>();
    m_portal->moveToThread(&m_thread);
    QDBusConnection bus = QDBusConnection::connectToBus(QString::fromLatin1(m_bus.address()), serviceConnection);
    QVERIFY(bus.registerObject(QStringLiteral("/org/freedesktop/portal/documents"), m_portal.get(),
                               QDBusConnection::ExportAllSlots));
    QVERIFY(bus.registerService(QStringLiteral("org.freedesktop.portal.Documents")));
}

std::optional<QList<QUrl>> PortalFileTransfersTest::retrieve(const QByteArray& key, int& answers)
{
    auto retrieved = std::make_shared<std::optional<QList<QUrl>>>();
    m_transfers->retrieve(key, [retrieved, &answers](std::optional<QList<QUrl>> files) {
        ++answers;
        *retrieved = std::move(files);
    });
    // Not before the call has returned.
    if (answers != 0)
        return std::nullopt;
    [&] { QTRY_COMPARE(answers, 1); }();
    return *retrieved;
}

void PortalFileTransfersTest::withoutAPortalThereAreNoTransfers()
{
    QVERIFY(!m_transfers->begin());
    QVERIFY(!m_transfers->add("12345", { fileUrl("/etc/passwd") }));
    int answers = 0;
    QVERIFY(!retrieve("12345", answers));
    QCOMPARE(answers, 1);
}

void PortalFileTransfersTest::anAddedFileIsHandedOverOpen()
{
    startPortal();
    QFile file(m_folder.filePath(QStringLiteral("ü %.txt")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(m_transfers->begin(), QByteArray("12345"));
    QVERIFY(m_portal->added.isEmpty());
    QVERIFY(m_transfers->add("12345", { fileUrl(file.fileName().toUtf8()) }));
    QCOMPARE(m_portal->added, QStringList{ file.fileName() });
    QCOMPARE(m_portal->addedKey, QStringLiteral("12345"));
}

// A bus refuses a message with more descriptors than it likes, and a program must not have thousands open.
void PortalFileTransfersTest::manyFilesAreHandedOverFewAtATime()
{
    startPortal();
    const TemporaryFolder folder;
    QList<QUrl> files;
    QStringList expected;
    for (int number = 0; number < 100; ++number) {
        files.append(fileUrl(folder.makeFile(QByteArray::number(number))));
        expected.append(QString::fromUtf8(filePath(files.last())));
    }
    QVERIFY(m_transfers->canHandOver(files));
    QVERIFY(m_transfers->add("12345", files));
    QCOMPARE(m_portal->added, expected);
    QCOMPARE(m_portal->mostAtATime, 16);
    // One that is gone makes the key useless: its receiver would miss it.
    files.append(fileUrl("/of/nobody"));
    QVERIFY(!m_transfers->canHandOver(files));
    QVERIFY(!m_transfers->add("12345", files));
}

void PortalFileTransfersTest::aFileThatIsGoneIsNotAdded()
{
    startPortal();
    QVERIFY(!m_transfers->add("12345", { fileUrl("/of/nobody") }));
}

void PortalFileTransfersTest::aFileThatMayNotAnswerIsNotAdded()
{
    startPortal();
    const TemporaryFolder server;
    MountList list;
    list.add(server.path(), "nfs");
    PortalFileTransfers transfers(std::make_shared<Mounts>("/", list.path()));
    QVERIFY(!transfers.add("12345", { fileUrl(server.makeFile("file")) }));
}

void PortalFileTransfersTest::foldersAndWhatMayNotAnswerAreNotHandedOver()
{
    const TemporaryFolder folder;
    const QUrl file = fileUrl(folder.makeFile("file"));
    QVERIFY(m_transfers->canHandOver({ file }));
    QVERIFY(!m_transfers->canHandOver({ fileUrl(folder.path()) }));
    QVERIFY(!m_transfers->canHandOver({ fileUrl("/of/nobody") }));
    MountList list;
    list.add(folder.path(), "nfs");
    PortalFileTransfers transfers(std::make_shared<Mounts>("/", list.path()));
    QVERIFY(!transfers.canHandOver({ file }));
}

void PortalFileTransfersTest::aRefusalIsNoKey()
{
    startPortal();
    m_portal->refuses = true;
    QVERIFY(!m_transfers->begin());
}

void PortalFileTransfersTest::aFileThatThePortalRefusesIsNotAdded()
{
    startPortal();
    m_portal->refuses = true;
    QVERIFY(!m_transfers->add("12345", { fileUrl("/etc/passwd") }));
}

void PortalFileTransfersTest::aPortalThatFailedOnceIsFoundWhenItRuns()
{
    QVERIFY(!m_transfers->begin());
    startPortal();
    QVERIFY(m_transfers->begin());
}

void PortalFileTransfersTest::retrievedFilesHaveTheirNames()
{
    startPortal();
    int answers = 0;
    const auto files = retrieve("12345", answers);
    QVERIFY(files);
    QCOMPARE(*files, QList<QUrl>({ fileUrl("/home/a b.txt"), fileUrl("/home/\xc3\xbc%.txt") }));
}

void PortalFileTransfersTest::aKeyThatIsUsedUpRetrievesNothing()
{
    startPortal();
    int answers = 0;
    QVERIFY(!retrieve("old", answers));
    QCOMPARE(answers, 1);
}

void PortalFileTransfersTest::aPortalThatDoesNotAnswerIsGivenUp()
{
    startPortal();
    m_portal->isSilent = true;
    int answers = 0;
    QVERIFY(!retrieve("12345", answers));
    QCOMPARE(answers, 1);
}

QTEST_GUILESS_MAIN(PortalFileTransfersTest)
#include "PortalFileTransfersTest.moc"
