#include "RequestServer.h"

#include <QFile>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QTest>

#include <chrono>

using namespace nookle;

class RequestServerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aRequestThatComesInPiecesIsAnsweredOnce();
    void whoAsksNothingIsLetGo();
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
    RequestServer server([](const QByteArray&) { return QByteArray("done"); }, std::chrono::milliseconds(1));
    QVERIFY(server.listen(QFile::encodeName(path)));
    QLocalSocket socket;
    socket.connectToServer(path);
    QVERIFY(socket.waitForConnected());
    QTRY_COMPARE(socket.state(), QLocalSocket::UnconnectedState);
    QVERIFY(socket.readAll().isEmpty());
}

QTEST_GUILESS_MAIN(RequestServerTest)
#include "RequestServerTest.moc"
