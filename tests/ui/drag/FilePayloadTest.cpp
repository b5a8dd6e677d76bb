#include "FilePayload.h"

#include "FakeFileTransfers.h"
#include "FileUrl.h"
#include "PayloadMimeData.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace nookle;

class FilePayloadTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aFileOffersItsAddress();
    void theToolkitSeesTheSameAddress();
    void aFileIsOfferedToSandboxesWhereThereIsAService();
    void aKeyGrantsNothingBeforeSomebodyAsksForIt();
    void eachReceiverGetsAKeyOfItsOwn();
    void aKeyThatTheServiceRefusesIsNoData();
    void aFolderIsNotOfferedToSandboxes();
    void aFileThatIsGoneIsNotOfferedToSandboxes();

private:
    inline static const QString keyFormat = QStringLiteral("application/vnd.portal.filetransfer");

    QTemporaryDir m_folder;
    FakeFileTransfers m_transfers;
    QUrl m_file;
};

void FilePayloadTest::init()
{
    m_transfers = FakeFileTransfers();
    QFile file(m_folder.filePath(QStringLiteral("a b.txt")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    m_file = fileUrl(file.fileName().toUtf8());
}

void FilePayloadTest::aFileOffersItsAddress()
{
    const DragPayload payload = filePayload(m_file, m_transfers);
    const QByteArray address = m_file.toEncoded();
    QVERIFY(address.endsWith("/a%20b.txt"));
    const QStringList expected{ QStringLiteral("text/uri-list"), QStringLiteral("text/x-moz-url"),
                                QStringLiteral("text/plain;charset=utf-8"), QStringLiteral("text/plain") };
    QCOMPARE(payload.formats(), expected);
    QCOMPARE(payload.data(QStringLiteral("text/uri-list")), QByteArray(address + "\r\n"));
    QCOMPARE(payload.data(QStringLiteral("text/plain")), address);
    const QByteArray utf16 = *payload.data(QStringLiteral("text/x-moz-url"));
    QCOMPARE(QString(reinterpret_cast<const QChar*>(utf16.constData()), utf16.size() / 2),
             QString(QString::fromLatin1(address) + QStringLiteral("\na b.txt")));
}

// On Wayland the toolkit hands over what it makes of its own list of addresses.
void FilePayloadTest::theToolkitSeesTheSameAddress()
{
    QFile file(m_folder.filePath(QStringLiteral("100% #1 ?.txt")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QUrl url = fileUrl(file.fileName().toUtf8());
    const PayloadMimeData data(std::make_shared<DragPayload>(filePayload(url, m_transfers)));
    QCOMPARE(data.urls(), QList<QUrl>{ url });
    QCOMPARE(data.urls().first().toEncoded(), url.toEncoded());
    QCOMPARE(data.text(), QString::fromLatin1(url.toEncoded()));
}

void FilePayloadTest::aFileIsOfferedToSandboxesWhereThereIsAService()
{
    m_transfers.key = "1234";
    const DragPayload payload = filePayload(m_file, m_transfers);
    QCOMPARE(payload.formats().first(), keyFormat);
    QCOMPARE(payload.data(keyFormat), QByteArray("1234\0", 5));
    QCOMPARE(m_transfers.added.size(), 1);
    QCOMPARE(m_transfers.added.first().first, QByteArray("1234"));
    QCOMPARE(m_transfers.added.first().second, m_file);
}

void FilePayloadTest::aKeyGrantsNothingBeforeSomebodyAsksForIt()
{
    m_transfers.key = "1234";
    const DragPayload payload = filePayload(m_file, m_transfers);
    QVERIFY(payload.data(QStringLiteral("text/uri-list")));
    QVERIFY(m_transfers.added.isEmpty());
}

void FilePayloadTest::eachReceiverGetsAKeyOfItsOwn()
{
    m_transfers.key = "first";
    const DragPayload payload = filePayload(m_file, m_transfers);
    m_transfers.key = "second";
    QCOMPARE(payload.data(keyFormat), QByteArray("first\0", 6));
    QCOMPARE(payload.data(keyFormat), QByteArray("second\0", 7));
    QCOMPARE(m_transfers.begun, 2);
}

void FilePayloadTest::aKeyThatTheServiceRefusesIsNoData()
{
    m_transfers.key = "1234";
    const DragPayload payload = filePayload(m_file, m_transfers);
    m_transfers.refuses = true;
    QVERIFY(!payload.data(keyFormat));
    m_transfers.key.reset();
    QVERIFY(!payload.data(keyFormat));
}

void FilePayloadTest::aFolderIsNotOfferedToSandboxes()
{
    m_transfers.key = "1234";
    const DragPayload payload = filePayload(fileUrl(m_folder.path().toUtf8()), m_transfers);
    QVERIFY(!payload.formats().contains(keyFormat));
    QVERIFY(!payload.data(keyFormat));
    QCOMPARE(m_transfers.begun, 0);
}

void FilePayloadTest::aFileThatIsGoneIsNotOfferedToSandboxes()
{
    m_transfers.key = "1234";
    QVERIFY(!filePayload(fileUrl("/of/nobody"), m_transfers).formats().contains(keyFormat));
    QCOMPARE(m_transfers.begun, 0);
}

QTEST_GUILESS_MAIN(FilePayloadTest)
#include "FilePayloadTest.moc"
