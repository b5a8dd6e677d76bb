#include "ServiceThumbnailMaker.h"

#include "FakeMainQueue.h"
#include "TemporaryFolder.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QProcess>
#include <QTest>

#include <memory>

using namespace nookle;

/// The service as the bus knows it. What it is asked is answered when a test says so.
class FakeThumbnailer : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.thumbnails.Thumbnailer1")

public:
    Q_SLOT uint Queue(const QStringList& uris, const QStringList& mimeTypes, const QString& flavor,
                      const QString& scheduler, uint toUnqueue)
    {
        asked.append(QList<QVariant>{ uris, mimeTypes, flavor, scheduler, toUnqueue });
        if (finishesAtOnce)
            Q_EMIT Ready(7, uris);
        return 7;
    }
    Q_SLOT void Dequeue(uint request) { dequeued.append(request); }

    Q_SIGNAL void Ready(uint /*request*/, const QStringList& /*uris*/);
    Q_SIGNAL void Error(uint /*request*/, const QStringList& /*uris*/, int /*code*/, const QString& /*message*/);
    Q_SIGNAL void Finished(uint /*request*/);

    bool finishesAtOnce = false;
    QList<QList<QVariant>> asked;
    QList<uint> dequeued;
};

class ServiceThumbnailMakerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();
    void serviceIsAskedForTheThumbnail();
    void readyThumbnailIsSaved();
    void thumbnailMayBeReadyBeforeTheAnswer();
    void failureIsNoThumbnail();
    void finishedWithoutThumbnailIsNoThumbnail();
    void signalOfAnotherRequestIsIgnored();
    void missingServiceIsNoThumbnail();
    void serviceThatNeverEndsIsNotWaitedFor();
    void droppedThumbnailIsTakenBack();
    void thumbnailMayBeDroppedByItsCompletion();
    void withoutBusThereIsNoService();

private:
    [[nodiscard]] std::unique_ptr<Cancellable> make();
    void startService();
    [[nodiscard]] bool isAsked();

    TemporaryFolder m_folder;
    QProcess m_daemon;
    QString m_address;
    std::unique_ptr<FakeMainQueue> m_queue;
    std::unique_ptr<ServiceThumbnailMaker> m_maker;
    std::unique_ptr<FakeThumbnailer> m_service;
    int m_results = 0;
    bool m_isSaved = false;
};

namespace {

const QString uri = QStringLiteral("file:///a%20b.mp4");
const QString serviceName = QStringLiteral("org.freedesktop.thumbnails.Thumbnailer1");

} // namespace

void ServiceThumbnailMakerTest::initTestCase()
{
    // A bus that knows no services which it could start.
    const QByteArray configuration = m_folder.makeFile(
        "bus.conf",
        "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\" "
        "\"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
        "<busconfig><type>session</type><listen>unix:path="
            + m_folder.path("bus")
            + "</listen><policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>"
              "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>\n");
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   { QStringLiteral("--nofork"), QStringLiteral("--print-address"), QStringLiteral("--config-file"),
                     QString::fromLatin1(configuration) });
    QVERIFY(m_daemon.waitForReadyRead());
    m_address = QString::fromLatin1(m_daemon.readAllStandardOutput().trimmed());
}

void ServiceThumbnailMakerTest::cleanupTestCase()
{
    m_daemon.kill();
    m_daemon.waitForFinished();
}

void ServiceThumbnailMakerTest::init()
{
    m_results = 0;
    m_isSaved = false;
    m_queue = std::make_unique<FakeMainQueue>();
    const QDBusConnection bus = QDBusConnection::connectToBus(m_address, QStringLiteral("program"));
    QVERIFY(bus.isConnected());
    m_maker = std::make_unique<ServiceThumbnailMaker>(*m_queue, bus);
}

void ServiceThumbnailMakerTest::cleanup()
{
    m_maker.reset();
    QDBusConnection::disconnectFromBus(QStringLiteral("program"));
    // While its connection is there, which ends in a thread of its own and must not know the service any more.
    m_service.reset();
    QDBusConnection::disconnectFromBus(QStringLiteral("service"));
    m_queue.reset();
}

void ServiceThumbnailMakerTest::startService()
{
    m_service = std::make_unique<FakeThumbnailer>();
    QDBusConnection bus = QDBusConnection::connectToBus(m_address, QStringLiteral("service"));
    const auto everything = QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals;
    QVERIFY(
        bus.registerObject(QStringLiteral("/org/freedesktop/thumbnails/Thumbnailer1"), m_service.get(), everything));
    QVERIFY(bus.registerService(serviceName));
}

std::unique_ptr<Cancellable> ServiceThumbnailMakerTest::make()
{
    ThumbnailMaker::Wanted wanted;
    wanted.path = "/a b.mp4";
    wanted.uri = uri.toLatin1();
    wanted.mimeType = QStringLiteral("video/mp4");
    wanted.side = 256;
    return m_maker->make(wanted, [this](const std::optional<ThumbnailMaker::Made>& made) {
        ++m_results;
        m_isSaved = made && !made->image;
    });
}

bool ServiceThumbnailMakerTest::isAsked()
{
    m_queue->runPosted();
    return !m_service->asked.isEmpty();
}

void ServiceThumbnailMakerTest::serviceIsAskedForTheThumbnail()
{
    startService();
    const auto making = make();
    QTRY_VERIFY(isAsked());
    const QList<QVariant> expected{ QStringList{ uri }, QStringList{ QStringLiteral("video/mp4") },
                                    QStringLiteral("large"), QStringLiteral("default"), 0U };
    QCOMPARE(m_service->asked, QList<QList<QVariant>>{ expected });
    QCOMPARE(m_results, 0);
}

void ServiceThumbnailMakerTest::readyThumbnailIsSaved()
{
    startService();
    auto making = make();
    QTRY_VERIFY(isAsked());
    Q_EMIT m_service->Ready(7, { QStringLiteral("file:///other"), uri });
    Q_EMIT m_service->Finished(7);
    QTRY_COMPARE((m_queue->runPosted(), m_results), 1);
    QVERIFY(m_isSaved);
    making.reset();
    QCOMPARE(m_queue->waitingTasks(), 0);
    // What would have been sent before the next request has come when that has.
    making = make();
    QTRY_COMPARE(m_service->asked.size(), 2);
    QVERIFY(m_service->dequeued.isEmpty());
}

void ServiceThumbnailMakerTest::thumbnailMayBeReadyBeforeTheAnswer()
{
    startService();
    m_service->finishesAtOnce = true;
    const auto making = make();
    QTRY_COMPARE((m_queue->runPosted(), m_results), 1);
    QVERIFY(m_isSaved);
}

void ServiceThumbnailMakerTest::failureIsNoThumbnail()
{
    startService();
    const auto making = make();
    QTRY_VERIFY(isAsked());
    Q_EMIT m_service->Error(7, { uri }, 0, QStringLiteral("unsupported"));
    QTRY_COMPARE((m_queue->runPosted(), m_results), 1);
    QVERIFY(!m_isSaved);
}

void ServiceThumbnailMakerTest::finishedWithoutThumbnailIsNoThumbnail()
{
    startService();
    const auto making = make();
    QTRY_VERIFY(isAsked());
    Q_EMIT m_service->Finished(7);
    QTRY_COMPARE((m_queue->runPosted(), m_results), 1);
    QVERIFY(!m_isSaved);
}

void ServiceThumbnailMakerTest::signalOfAnotherRequestIsIgnored()
{
    startService();
    const auto making = make();
    QTRY_VERIFY(isAsked());
    Q_EMIT m_service->Ready(8, { QStringLiteral("file:///other") });
    Q_EMIT m_service->Error(8, { QStringLiteral("file:///other") }, 0, QString());
    Q_EMIT m_service->Finished(8);
    Q_EMIT m_service->Ready(7, { uri });
    QTRY_COMPARE((m_queue->runPosted(), m_results), 1);
    QVERIFY(m_isSaved);
}

void ServiceThumbnailMakerTest::missingServiceIsNoThumbnail()
{
    const auto making = make();
    QCOMPARE(m_results, 0);
    QTRY_COMPARE((m_queue->runPosted(), m_results), 1);
    QVERIFY(!m_isSaved);
}

void ServiceThumbnailMakerTest::serviceThatNeverEndsIsNotWaitedFor()
{
    startService();
    auto making = make();
    QTRY_VERIFY(isAsked());
    m_queue->advance(19.999);
    QCOMPARE(m_results, 0);
    m_queue->advance(0.001);
    QCOMPARE(m_results, 1);
    QVERIFY(!m_isSaved);
}

void ServiceThumbnailMakerTest::droppedThumbnailIsTakenBack()
{
    startService();
    auto making = make();
    QTRY_VERIFY(isAsked());
    // The service's number for the request is on its way: nothing can be taken back before it is here.
    const auto isTakenBack = [this, &making] {
        making.reset();
        if (m_service->dequeued.isEmpty())
            making = make();
        return !m_service->dequeued.isEmpty();
    };
    QTRY_VERIFY(isTakenBack());
    QCOMPARE(m_service->dequeued.first(), 7U);
    QCOMPARE(m_results, 0);
}

void ServiceThumbnailMakerTest::thumbnailMayBeDroppedByItsCompletion()
{
    startService();
    m_service->finishesAtOnce = true;
    std::unique_ptr<Cancellable> making;
    bool isDone = false;
    ThumbnailMaker::Wanted wanted;
    wanted.uri = uri.toLatin1();
    making = m_maker->make(wanted, [&](const auto& /*made*/) {
        making.reset();
        isDone = true;
    });
    QTRY_VERIFY((m_queue->runPosted(), isDone));
}

void ServiceThumbnailMakerTest::withoutBusThereIsNoService()
{
    ServiceThumbnailMaker maker(*m_queue, QDBusConnection(QStringLiteral("no such connection")));
    QVERIFY(!maker.make({}, [](const auto& /*made*/) {}));
}

QTEST_GUILESS_MAIN(ServiceThumbnailMakerTest)
#include "ServiceThumbnailMakerTest.moc"
