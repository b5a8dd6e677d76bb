#include "TestWebServer.h"
#include "WebFixture.h"

#include "CapturedLog.h"
#include "LookupHelper.h"
#include "LookupSandbox.h"
#include "Sandbox.h"

#include <QFile>
#include <QProcess>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>

#include <sys/wait.h>

#include <cerrno>
#include <csignal>
#include <memory>
#include <tuple>
#include <vector>

using namespace nookle;

namespace {

[[nodiscard]] bool isAlive(qint64 process)
{
    return ::kill(pid_t(process), 0) == 0;
}

// What a shell script says and waits for in the place of the helper, whose socket is its standard input.
const QByteArray greet = "printf 'nookle-lookup-1\\n' >&0\n";
const QByteArray awaitRequest = "dd bs=1 count=1 >/dev/null 2>&1\n";

/// Waits without the event loop until the process is dead. The toolkit may have reaped it by then.
[[nodiscard]] bool isDeadAtLast(qint64 process)
{
    siginfo_t info{};
    int result = 0;
    do
        result = ::waitid(P_PID, id_t(process), &info, WEXITED | WNOWAIT);
    while (result != 0 && errno == EINTR);
    return result == 0 || errno == ECHILD;
}

} // namespace

class LookupHelperTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void theHelperStartsWithTheFirstLinkAndEndsWhenIdle();
    void oneHelperServesLinksThatFollowEachOther();
    void aHelperThatDiesCostsItsOwnLinkAlone();
    void aHelperThatDiedWhileIdleCostsNoLink();
    void aHelperThatHangsIsKilledInTime();
    void helpersThatMisbehaveHaveNoReply_data();
    void helpersThatMisbehaveHaveNoReply();
    void aHelperThatSpeaksUnaskedIsEnded();
    void aMissingHelperIsToldOnce();
    void aHelperThatDoesNotStartIsToldOnce();
    void serversThatNeverEndAreGivenUp();
    void aServerThatNeverEndsIsGivenUpInTime();
    void pagesMadeToTakeLongCostTheirOwnLinkAlone_data();
    void pagesMadeToTakeLongCostTheirOwnLinkAlone();
    void thousandsOfLinksAreLookedUp();
    void theSandboxHasTheNetworkAndNothingOfTheUsers();
    void theRealHelperRefusesNoPageOfThisComputer();

private:
    void useScript(const QByteArray& script);
    [[nodiscard]] std::unique_ptr<Lookup> lookUp(const char* path = "/a") { return m_web->lookUp(m_server->url(path)); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<TestWebServer> m_server;
    std::unique_ptr<WebFixture> m_web;
};

void LookupHelperTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_server = std::make_unique<TestWebServer>();
    m_server->servePage("/a", "<title>One</title><body>");
    m_web = std::make_unique<WebFixture>();
}

void LookupHelperTest::cleanup()
{
    m_web.reset();
    m_server.reset();
    m_folder.reset();
}

void LookupHelperTest::useScript(const QByteArray& script)
{
    const QString path = m_folder->filePath(QStringLiteral("helper"));
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n" + script);
        file.setPermissions(QFileDevice::ReadOwner | QFileDevice::ExeOwner);
    }
    m_web->useHelper(path);
}

void LookupHelperTest::theHelperStartsWithTheFirstLinkAndEndsWhenIdle()
{
    m_web->queue.advance(100);
    QVERIFY(m_web->service->processIds().isEmpty());
    const auto lookup = lookUp();
    QTRY_VERIFY(lookup->isDone());
    QCOMPARE(m_web->service->processIds().size(), 1);
    const qint64 process = m_web->service->processIds().constFirst();
    m_web->queue.advance(LookupHelper::longestIdling - 0.001);
    QCOMPARE(m_web->service->processIds(), QList<qint64>{ process });
    m_web->queue.advance(0.001);
    QVERIFY(m_web->service->processIds().isEmpty());
    QTRY_VERIFY(!isAlive(process));
    QCOMPARE(m_web->queue.waitingTasks(), 0);
}

void LookupHelperTest::oneHelperServesLinksThatFollowEachOther()
{
    QList<qint64> processes;
    for (int i = 0; i < 3; ++i) {
        const auto lookup = lookUp();
        QTRY_VERIFY(lookup->isDone());
        QCOMPARE(lookup->title(), QStringLiteral("One"));
        processes += m_web->service->processIds();
    }
    QCOMPARE(processes, QList<qint64>(3, processes.constFirst()));
}

void LookupHelperTest::aHelperThatDiesCostsItsOwnLinkAlone()
{
    m_server->serve("/silent", [](QTcpSocket&) {});
    const auto silent = lookUp("/silent");
    QTRY_COMPARE(m_server->requestsFor("/silent"), 1);
    const auto other = lookUp();
    QVERIFY(::kill(pid_t(m_web->service->processIds().constFirst()), SIGKILL) == 0);
    QTRY_VERIFY(silent->hasFailed());
    QTRY_COMPARE(other->title(), QStringLiteral("One"));
}

void LookupHelperTest::aHelperThatDiedWhileIdleCostsNoLink()
{
    const auto first = lookUp();
    QTRY_VERIFY(first->isDone());
    const qint64 process = m_web->service->processIds().constFirst();
    QVERIFY(::kill(pid_t(process), SIGKILL) == 0);
    // It is dead, and nobody has noticed.
    QVERIFY(isDeadAtLast(process));
    const auto second = lookUp();
    m_web->queue.runPosted();
    QTRY_COMPARE(second->title(), QStringLiteral("One"));
    QVERIFY(!m_web->service->processIds().contains(process));
}

void LookupHelperTest::aHelperThatHangsIsKilledInTime()
{
    useScript("trap '' TERM\n" + greet + "exec sleep 1000\n");
    const auto lookup = lookUp();
    QTRY_COMPARE(m_web->service->processIds().size(), 1);
    const qint64 process = m_web->service->processIds().constFirst();
    m_web->queue.advance(LookupHelper::longestLookup - 0.001);
    QVERIFY(!lookup->isDone());
    m_web->queue.advance(0.001);
    QVERIFY(lookup->hasFailed());
    QTRY_VERIFY(!isAlive(process));
}

void LookupHelperTest::helpersThatMisbehaveHaveNoReply_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::newRow("another greeting") << QByteArray("printf 'nookle-decode-1\\n' >&0; exec sleep 1000\n");
    QTest::newRow("a reply before the request") << QByteArray(greet.chopped(6) + "xxxx' >&0; exec sleep 1000\n");
    QTest::newRow("no reply") << QByteArray(greet + awaitRequest);
    QTest::newRow("a length and no more") << QByteArray(greet + awaitRequest + "printf '\\0\\0\\1\\0xx' >&0\n");
    QTest::newRow("a length beyond all bounds")
        << QByteArray(greet + awaitRequest + "printf '\\377\\377\\377\\377' >&0; exec sleep 1000\n");
    QTest::newRow("an empty reply") << QByteArray(greet + awaitRequest
                                                  + "printf '\\0\\0\\0\\0' >&0; exec sleep 1000\n");
    QTest::newRow("a flood") << QByteArray(greet + awaitRequest + "exec yes >&0\n");
    QTest::newRow("nonsense") << QByteArray(greet + awaitRequest + "printf '\\0\\0\\0\\4abcd' >&0; exec sleep 1000\n");
}

void LookupHelperTest::helpersThatMisbehaveHaveNoReply()
{
    QFETCH(QByteArray, script);
    useScript(script);
    const auto lookup = lookUp();
    QTRY_VERIFY(lookup->isDone());
    QVERIFY(lookup->hasFailed());
    QVERIFY(m_web->service->processIds().isEmpty());
}

void LookupHelperTest::aHelperThatSpeaksUnaskedIsEnded()
{
    // An honest reply that nothing was found, and then more.
    const QByteArray reply = LookupReply().encode();
    QString octal;
    for (const char byte : reply)
        octal += QStringLiteral("\\%1").arg(quint8(byte), 3, 8, QLatin1Char('0'));
    useScript(greet + awaitRequest + "printf '\\0\\0\\0\\" + QByteArray::number(reply.size(), 8) + octal.toLatin1()
              + "' >&0\nsleep 0.2\nexec yes >&0\n");
    const auto lookup = lookUp();
    QTRY_VERIFY(lookup->isDone());
    QCOMPARE(m_web->service->processIds().size(), 1);
    QTRY_VERIFY(m_web->service->processIds().isEmpty());
}

void LookupHelperTest::aMissingHelperIsToldOnce()
{
    const CapturedLog log;
    m_web->useHelper(m_folder->filePath(QStringLiteral("none")), WebLinkMetadata::Confinement::sandbox);
    std::vector<std::unique_ptr<Lookup>> lookups;
    for (int i = 0; i < 10; ++i)
        lookups.push_back(lookUp());
    m_web->queue.runPosted();
    for (const auto& lookup : lookups)
        QVERIFY(lookup->hasFailed());
    QCOMPARE(log.lines().size(), 1);
    QVERIFY(log.lines().constFirst().contains(QStringLiteral("linked pages")));
}

void LookupHelperTest::aHelperThatDoesNotStartIsToldOnce()
{
    const CapturedLog log;
    useScript("exit 1\n");
    std::vector<std::unique_ptr<Lookup>> lookups;
    for (int i = 0; i < 6; ++i)
        lookups.push_back(lookUp());
    QTRY_VERIFY(lookups.back()->isDone());
    for (const auto& lookup : lookups)
        QVERIFY(lookup->hasFailed());
    QCOMPARE(log.lines().size(), 1);
}

void LookupHelperTest::serversThatNeverEndAreGivenUp()
{
    for (const auto& [path, beginning, part] :
         { std::tuple("/headers", "HTTP/1.1 200 OK\r\n", "X: y\r\n"),
           std::tuple("/body", "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n\r\n", "text "),
           std::tuple("/interim", "", "HTTP/1.1 100 Continue\r\n\r\n") }) {
        m_server->serve(
            path,
            [beginning = QByteArray(beginning), parts = QByteArray(part).repeated(10'000)](QTcpSocket& connection) {
                connection.write(beginning + parts);
                connect(&connection, &QTcpSocket::bytesWritten, &connection, [&connection, parts] {
                    if (connection.bytesToWrite() == 0)
                        connection.write(parts);
                });
            });
    }
    const auto headers = lookUp("/headers");
    const auto body = lookUp("/body");
    const auto interim = lookUp("/interim");
    QTRY_VERIFY(headers->isDone() && body->isDone() && interim->isDone());
    QVERIFY(headers->hasFailed());
    QCOMPARE(body->title(), QStringLiteral("(none)"));
    QVERIFY(interim->hasFailed());
}

void LookupHelperTest::aServerThatNeverEndsIsGivenUpInTime()
{
    // The extension of a chunk is neither header nor body, and nobody counts it.
    m_server->serve("/chunk", [parts = QByteArray(100'000, 'x')](QTcpSocket& connection) {
        connection.write("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3;x=" + parts);
        connect(&connection, &QTcpSocket::bytesWritten, &connection, [&connection, parts] {
            if (connection.bytesToWrite() == 0)
                connection.write(parts);
        });
    });
    const auto lookup = lookUp("/chunk");
    QTRY_COMPARE(m_server->requestsFor("/chunk"), 1);
    m_web->queue.advance(LookupHelper::longestLookup);
    QTRY_VERIFY(lookup->hasFailed());
    QTRY_COMPARE(m_server->openConnections(), 0);
}

void LookupHelperTest::pagesMadeToTakeLongCostTheirOwnLinkAlone_data()
{
    QTest::addColumn<QByteArray>("page");
    QByteArray attributes = "<meta";
    for (int i = 0; attributes.size() < 1'000'000; ++i)
        attributes += " a" + QByteArray::number(i);
    QTest::newRow("attributes") << attributes + "><title>No</title>";
    QTest::newRow("nested elements") << QByteArray("<b>").repeated(170'000) + QByteArray("</i>").repeated(130'000);
}

void LookupHelperTest::pagesMadeToTakeLongCostTheirOwnLinkAlone()
{
    QFETCH(QByteArray, page);
    m_server->servePage("/long", page);
    const auto slow = lookUp("/long");
    QTRY_COMPARE(m_server->requestsFor("/long"), 1);
    const qint64 process = m_web->service->processIds().constFirst();
    const auto other = lookUp();
    QTRY_COMPARE(other->title(), QStringLiteral("One"));
    m_web->queue.advance(LookupHelper::longestLookup + LookupHelper::longestIdling);
    QTRY_VERIFY(slow->isDone());
    QVERIFY(slow->title() != QStringLiteral("No"));
    QTRY_VERIFY(!isAlive(process));
}

void LookupHelperTest::thousandsOfLinksAreLookedUp()
{
    constexpr int count = 2000;
    int found = 0;
    int failed = 0;
    qsizetype processes = 0;
    std::vector<std::unique_ptr<Cancellable>> requests;
    for (int i = 0; i < count; ++i)
        requests.push_back(m_web->service->start(m_server->url("/a"), [&](const auto& metadata) {
            ++(metadata && metadata->title == QStringLiteral("One") ? found : failed);
            processes = qMax(processes, m_web->service->processIds().size());
        }));
    QTRY_COMPARE_WITH_TIMEOUT(found + failed, count, 50'000);
    QCOMPARE(failed, 0);
    QCOMPARE(processes, qsizetype(WebLinkMetadata::mostAtOnce));
}

void LookupHelperTest::theSandboxHasTheNetworkAndNothingOfTheUsers()
{
    const QString bwrap = sandboxProgram();
    const QStringList arguments = sandboxArguments() + lookupSandboxArguments();
    if (QProcess::execute(bwrap, arguments + QStringList{ QStringLiteral("true") }) != 0)
        QSKIP("no sandbox can be had here");
    const auto inside = [&](const char* script) {
        return QProcess::execute(
            bwrap, arguments + QStringList{ QStringLiteral("sh"), QStringLiteral("-c"), QString::fromLatin1(script) });
    };
    QCOMPARE(inside("test -r /etc/hosts -a -d /etc/ssl"), 0);
    QCOMPARE(inside("! test -e /home -o -e /root -o -e /run -o -e /var/lib"), 0);
    QCOMPARE(inside("test -z \"$DISPLAY$DBUS_SESSION_BUS_ADDRESS$XDG_RUNTIME_DIR\""), 0);
    m_web->useHelper(QStringLiteral(NOOKLE_LOOKUP), WebLinkMetadata::Confinement::sandbox);
    const auto lookup = lookUp();
    QTRY_VERIFY(lookup->isDone());
    QCOMPARE(lookup->title(), QStringLiteral("One"));
}

void LookupHelperTest::theRealHelperRefusesNoPageOfThisComputer()
{
    m_web->useHelper(QStringLiteral(NOOKLE_REAL_LOOKUP), WebLinkMetadata::Confinement::sandbox);
    const auto lookup = m_web->lookUp(m_server->url("/a", "127.0.0.1"));
    QTRY_VERIFY(lookup->isDone());
    QCOMPARE(lookup->title(), QStringLiteral("One"));
}

QTEST_GUILESS_MAIN(LookupHelperTest)
#include "LookupHelperTest.moc"
