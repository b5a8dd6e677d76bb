#include "DesktopWorkspace.h"

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
    void withoutAFileManagerTheFolderIsOpened();

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
    DesktopWorkspace().reveal(QUrl(QStringLiteral("file:///home/me/caf%E9%20one")));
    QTRY_COMPARE(fileManager.shown, QStringList{ QStringLiteral("file:///home/me/caf%E9%20one") });
    QDBusConnection::disconnectFromBus(name);
    QVERIFY(m_opened.isEmpty());
}

void DesktopWorkspaceTest::withoutAFileManagerTheFolderIsOpened()
{
    DesktopWorkspace().reveal(QUrl(QStringLiteral("file:///home/me/a")));
    QTRY_COMPARE(m_opened, QList<QUrl>{ QUrl(QStringLiteral("file:///home/me/")) });
}

QTEST_MAIN(DesktopWorkspaceTest)
#include "DesktopWorkspaceTest.moc"
