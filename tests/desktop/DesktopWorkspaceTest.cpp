#include "DesktopWorkspace.h"

#include "CapturedLog.h"
#include "PrivateBus.h"

#include <QDBusConnection>
#include <QDesktopServices>
#include <QTest>

#include <memory>

using namespace nookle;

/// A file manager that answers on the bus.
class FakeFileManager : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    Q_SLOT void ShowItems(const QStringList& uris, const QString& /*startupId*/) { shown += uris; }

    QStringList shown;
};

class DesktopWorkspaceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void theFileManagerShowsTheFile();
    void withoutAFileManagerEachFolderIsOpenedOnce();
    void anAddressThatRunsSomethingIsRefusedWithOneLogLine_data();
    void anAddressThatRunsSomethingIsRefusedWithOneLogLine();
    void otherAddressesAreOpened();

public:
    /// Stands in for the desktop's programs.
    Q_SLOT void open(const QUrl& url) { m_opened.append(url); }

private:
    PrivateBus m_bus;
    QList<QUrl> m_opened;
};

void DesktopWorkspaceTest::initTestCase()
{
    QVERIFY(!m_bus.address().isEmpty());
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.address());
    QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open");
}

void DesktopWorkspaceTest::init()
{
    m_opened.clear();
}

void DesktopWorkspaceTest::cleanupTestCase()
{
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
}

void DesktopWorkspaceTest::theFileManagerShowsTheFile()
{
    FakeFileManager fileManager;
    const QString name = QStringLiteral("file manager");
    QDBusConnection bus = QDBusConnection::connectToBus(QString::fromLatin1(m_bus.address()), name);
    QVERIFY(bus.registerObject(QStringLiteral("/org/freedesktop/FileManager1"), &fileManager,
                               QDBusConnection::ExportAllSlots));
    QVERIFY(bus.registerService(QStringLiteral("org.freedesktop.FileManager1")));
    DesktopWorkspace().reveal(
        { QUrl(QStringLiteral("file:///home/me/caf%E9%20one")), QUrl(QStringLiteral("file:///home/b")) });
    QTRY_COMPARE(fileManager.shown,
                 QStringList({ QStringLiteral("file:///home/me/caf%E9%20one"), QStringLiteral("file:///home/b") }));
    QDBusConnection::disconnectFromBus(name);
    QVERIFY(m_opened.isEmpty());
}

void DesktopWorkspaceTest::withoutAFileManagerEachFolderIsOpenedOnce()
{
    DesktopWorkspace().reveal({ QUrl(QStringLiteral("file:///home/me/a")), QUrl(QStringLiteral("file:///home/b")),
                                QUrl(QStringLiteral("file:///home/me/c")) });
    QTRY_COMPARE(m_opened,
                 QList<QUrl>({ QUrl(QStringLiteral("file:///home/me/")), QUrl(QStringLiteral("file:///home/")) }));
}

void DesktopWorkspaceTest::anAddressThatRunsSomethingIsRefusedWithOneLogLine_data()
{
    QTest::addColumn<QUrl>("address");
    QTest::addColumn<QString>("scheme");
    const auto row = [](const char* address, const char* scheme) {
        QTest::newRow(address) << QUrl(QString::fromLatin1(address)) << QString::fromLatin1(scheme);
    };
    row("javascript:moonlight", "javascript");
    row("data:text/html,moonlight", "data");
    row("vbscript:moonlight", "vbscript");
    row("blob:moonlight", "blob");
    row("about:moonlight", "about");
    row("file://elsewhere/moonlight", "file");
    row("view-source:javascript:moonlight", "javascript");
}

void DesktopWorkspaceTest::anAddressThatRunsSomethingIsRefusedWithOneLogLine()
{
    QFETCH(const QUrl, address);
    QFETCH(const QString, scheme);
    QDesktopServices::setUrlHandler(address.scheme(), this, "open");
    const CapturedLog log;
    DesktopWorkspace().open(address);
    if (address.scheme() != QLatin1String("file"))
        QDesktopServices::unsetUrlHandler(address.scheme());
    QCOMPARE(m_opened, QList<QUrl>());
    QCOMPARE(log.lines(), QStringList{ QString(QStringLiteral("Nookle: an address is not opened: ") + scheme) });
}

void DesktopWorkspaceTest::otherAddressesAreOpened()
{
    const QStringList schemes{ QStringLiteral("https"), QStringLiteral("mailto"), QStringLiteral("steam") };
    for (const QString& scheme : schemes)
        QDesktopServices::setUrlHandler(scheme, this, "open");
    const QList<QUrl> addresses{ QUrl(QStringLiteral("https://example.com/")),
                                 QUrl(QStringLiteral("mailto:a@b.example")), QUrl(QStringLiteral("steam://run/1")),
                                 QUrl(QStringLiteral("file:///home/me/a")) };
    for (const QUrl& address : addresses)
        DesktopWorkspace().open(address);
    for (const QString& scheme : schemes)
        QDesktopServices::unsetUrlHandler(scheme);
    QCOMPARE(m_opened, addresses);
}

QTEST_MAIN(DesktopWorkspaceTest)
#include "DesktopWorkspaceTest.moc"
