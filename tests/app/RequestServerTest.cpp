#include "RequestServer.h"

#include <QFile>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <chrono>
#include <vector>

using namespace nookle;

namespace {

inline constexpr std::chrono::minutes aMinute{ 1 };

} // namespace

class RequestServerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aRequestThatComesInPiecesIsAnsweredOnce();
    void whoAsksNothingIsLetGo();
    void whoHasGoneIsNotServed();
    void withoutADescriptorItPauses();
    void afterThePauseItAnswers();
    void whatIsTooManyWaits();
};

void RequestServerTest::aRequestThatComesInPiecesIsAnsweredOnce()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("socket"));
    QList<QByteArray> requests;
    RequestServer server([&](const QByteArray& request) {
        requests.append(request);
        return QByteArray("done");
    });
    QVERIFY(server.listen(QFile::encodeName(path)));
    QLocalSocket socket;
    socket.connectToServer(path);
    QVERIFY(socket.waitForConnected());
    socket.write("one re");
    QVERIFY(socket.waitForBytesWritten());
    QCoreApplication::processEvents();
    socket.write("quest\nand more\n");
    QTRY_COMPARE(socket.state(), QLocalSocket::UnconnectedState);
    QCOMPARE(socket.readAll(), QByteArray("done"));
    QCOMPARE(requests, QList<QByteArray>{ "one request" });
}

void RequestServerTest::whoAsksNothingIsLetGo()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("socket"));
    RequestServer server([](const QByteArray&) { return QByteArray("done"); },
                         { .patience = std::chrono::milliseconds(1) });
    QVERIFY(server.listen(QFile::encodeName(path)));
    QLocalSocket socket;
    socket.connectToServer(path);
    QVERIFY(socket.waitForConnected());
    QTRY_COMPARE(socket.state(), QLocalSocket::UnconnectedState);
    QVERIFY(socket.readAll().isEmpty());
}

void RequestServerTest::whoHasGoneIsNotServed()
{
    const QTemporaryDir folder;
    const QByteArray path = QFile::encodeName(folder.filePath(QStringLiteral("socket")));
    QList<QByteArray> requests;
    RequestServer server([&](const QByteArray& request) {
        requests.append(request);
        return QByteArray("done");
    });
    QVERIFY(server.listen(path));
    {
        const FileDescriptor gone = connectToSocket(path, aMinute);
        QVERIFY(sendAll(gone, "first\n"));
    }
    const FileDescriptor present = connectToSocket(path, aMinute);
    QVERIFY(sendAll(present, "second\n"));
    QTRY_VERIFY(!requests.isEmpty());
    QCOMPARE(requests, QList<QByteArray>{ "second" });
}

void RequestServerTest::withoutADescriptorItPauses()
{
    const QTemporaryDir folder;
    const QByteArray path = QFile::encodeName(folder.filePath(QStringLiteral("socket")));
    int tries = 0;
    RequestServer server([](const QByteArray&) { return QByteArray("done"); }, { .pause = aMinute },
                         [&](const FileDescriptor&) {
                             ++tries;
                             errno = EMFILE;
                             return FileDescriptor();
                         });
    QVERIFY(server.listen(path));
    const FileDescriptor client = connectToSocket(path, aMinute);
    QTRY_COMPARE(tries, 1);
    for (int turn = 0; turn < 20; ++turn)
        QCoreApplication::processEvents();
    QCOMPARE(tries, 1);
}

void RequestServerTest::afterThePauseItAnswers()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("socket"));
    int tries = 0;
    RequestServer server([](const QByteArray&) { return QByteArray("done"); },
                         { .pause = std::chrono::milliseconds(1) },
                         [&](const FileDescriptor& listening) {
                             if (++tries > 2)
                                 return acceptConnection(listening);
                             errno = ENFILE;
                             return FileDescriptor();
                         });
    QVERIFY(server.listen(QFile::encodeName(path)));
    QLocalSocket socket;
    socket.connectToServer(path);
    QVERIFY(socket.waitForConnected());
    socket.write("request\n");
    QTRY_COMPARE(socket.state(), QLocalSocket::UnconnectedState);
    QCOMPARE(socket.readAll(), QByteArray("done"));
    QVERIFY(tries > 2);
}

void RequestServerTest::whatIsTooManyWaits()
{
    const QTemporaryDir folder;
    const QByteArray path = QFile::encodeName(folder.filePath(QStringLiteral("socket")));
    int taken = 0;
    QList<QByteArray> requests;
    RequestServer server(
        [&](const QByteArray& request) {
            requests.append(request);
            return QByteArray("done");
        },
        {},
        [&](const FileDescriptor& listening) {
            FileDescriptor socket = acceptConnection(listening);
            taken += socket.isOpen() ? 1 : 0;
            return socket;
        });
    QVERIFY(server.listen(path));
    std::vector<FileDescriptor> idle;
    for (int each = 0; each < 40; ++each)
        idle.push_back(connectToSocket(path, aMinute));
    const FileDescriptor last = connectToSocket(path, aMinute);
    QVERIFY(sendAll(last, "request\n"));
    QTRY_COMPARE(taken, 32);
    for (int turn = 0; turn < 20; ++turn)
        QCoreApplication::processEvents();
    QCOMPARE(taken, 32);
    QVERIFY(requests.isEmpty());
    // Whoever goes makes room.
    idle.clear();
    QTRY_COMPARE(requests, QList<QByteArray>{ "request" });
}

QTEST_GUILESS_MAIN(RequestServerTest)
#include "RequestServerTest.moc"
