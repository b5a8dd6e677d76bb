#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QDBusConnection>
#include <QDBusMetaType>
#include <QDBusUnixFileDescriptor>
#include <QJsonObject>
#include <QVariantMap>
#include <QtTest>

using namespace nookle::e2e;

/// The desktop's portal that hands files over between programs by a key. It hands over another file than was given, so
/// that it shows whether a receiver used the key.
class FileTransferPortal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.FileTransfer")

public:
    static inline const QString key = QStringLiteral("4711");

    explicit FileTransferPortal(const QString& handedOver)
        : m_handedOver(handedOver)
    {
    }

    Q_SLOT QString StartTransfer(const QVariantMap& /*options*/) { return key; }
    Q_SLOT void AddFiles(const QString& /*key*/, const QList<QDBusUnixFileDescriptor>& files,
                         const QVariantMap& /*options*/)
    {
        m_hasFiles = m_hasFiles || !files.isEmpty();
    }
    Q_SLOT QStringList RetrieveFiles(const QString& wanted, const QVariantMap& /*options*/)
    {
        return m_hasFiles && wanted == key ? QStringList{ m_handedOver } : QStringList();
    }
    Q_SLOT void StopTransfer(const QString& /*key*/) {}

private:
    QString m_handedOver;
    bool m_hasFiles = false;
};

namespace {

const QString portalConnection = QStringLiteral("portal");
/// With a letter that not every encoding has.
const QString words = QStringLiteral("schöne Wörter");

} // namespace

/// What native Wayland programs of GTK drop on the shelf.
class WaylandToolkitSourcesTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aFileLandsAsAFile_data() { addVersions(); }
    void aFileLandsAsAFile();
    void aFileComesByItsKeyWhereThereIsAPortal();
    void aTextLandsAsAText_data() { addVersions(); }
    void aTextLandsAsAText();

private:
    static void addVersions();
    [[nodiscard]] bool startPortal();
    /// Opens a window of GTK that offers "note one.txt" or the text in it.
    [[nodiscard]] bool openSource(int version, bool isText);
    /// Drops what it offers on the shelf. False when no item is saved.
    [[nodiscard]] bool drop();

    std::unique_ptr<FileTransferPortal> m_portal;
};

void WaylandToolkitSourcesTest::init()
{
    QVERIFY(setUpDesktop(compositor()));
}

void WaylandToolkitSourcesTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("%1-%2.png")
                        .arg(qEnvironmentVariable("NOOKLE_ENVIRONMENT"), QLatin1String(QTest::currentTestFunction())));
    QDBusConnection::disconnectFromBus(portalConnection);
    m_portal.reset();
    tearDownDesktop();
}

void WaylandToolkitSourcesTest::addVersions()
{
    QTest::addColumn<int>("version");
    QTest::newRow("GTK 3") << 3;
    QTest::newRow("GTK 4") << 4;
}

bool WaylandToolkitSourcesTest::openSource(int version, bool isText)
{
    if (version == 4) {
        m_desktop->writeFile(QStringLiteral("files/note one.txt"), words.toUtf8());
        QStringList arguments{ home("files/note one.txt"), home("result") };
        if (isText)
            arguments << QStringLiteral("text");
        return openProgram(qEnvironmentVariable("NOOKLE_GTK_SOURCE"), arguments);
    }
    m_desktop->writeFile(QStringLiteral("offered"), isText ? words.toUtf8() : fileList());
    const QString type = isText ? QStringLiteral("text/plain;charset=utf-8") : QStringLiteral("text/uri-list");
    return openProgram(qEnvironmentVariable("NOOKLE_GTK3_SOURCE"), { home("offered"), type, home("result") });
}

bool WaylandToolkitSourcesTest::drop()
{
    if (!beginDragOfPeer())
        return false;
    hand().moveTo(QPoint(WaylandDesktop::displaySize.width() - 1, middle.y()));
    // GTK 4 does not say under each compositor that its drag is taken.
    const bool isTaken = waitFor([this] { return m_desktop->hasPictures() ? isDropTarget() : timesSaid("taken") > 0; });
    if (!isTaken)
        return false;
    hand().tremble();
    hand().release();
    // What GTK 4 makes of the end is no sign: sway and labwc cancel a drag that they have told to be finished.
    return waitFor([this] { return m_shelf->savedItems().size() == 1; });
}

void WaylandToolkitSourcesTest::aFileLandsAsAFile()
{
    QFETCH(const int, version);
    QVERIFY(startShelf());
    QVERIFY(openSource(version, false));
    QVERIFY(drop());
    QCOMPARE(m_shelf->savedFileNames(), QStringList{ QStringLiteral("note one.txt") });
}

bool WaylandToolkitSourcesTest::startPortal()
{
    qDBusRegisterMetaType<QList<QDBusUnixFileDescriptor>>();
    m_desktop->writeFile(QStringLiteral("files/handed over.txt"), "words");
    m_portal = std::make_unique<FileTransferPortal>(home("files/handed over.txt"));
    auto bus = QDBusConnection::connectToBus(m_desktop->environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")),
                                             portalConnection);
    return bus.registerObject(QStringLiteral("/org/freedesktop/portal/documents"), m_portal.get(),
                              QDBusConnection::ExportAllSlots)
        && bus.registerService(QStringLiteral("org.freedesktop.portal.Documents"));
}

// GTK 3 knows no keys.
void WaylandToolkitSourcesTest::aFileComesByItsKeyWhereThereIsAPortal()
{
    QVERIFY(startPortal());
    QVERIFY(startShelf());
    QVERIFY(openSource(4, false));
    QVERIFY(drop());
    QCOMPARE(m_shelf->savedFileNames(), QStringList{ QStringLiteral("handed over.txt") });
}

void WaylandToolkitSourcesTest::aTextLandsAsAText()
{
    QFETCH(const int, version);
    QVERIFY(startShelf());
    QVERIFY(openSource(version, true));
    QVERIFY(drop());
    const QJsonObject content = m_shelf->savedItems().first().value(QLatin1String("content")).toObject();
    QCOMPARE(content.value(QLatin1String("text")).toObject().value(QLatin1String("_0")).toString(), words);
}

QTEST_GUILESS_MAIN(WaylandToolkitSourcesTest)
#include "WaylandToolkitSourcesTest.moc"
