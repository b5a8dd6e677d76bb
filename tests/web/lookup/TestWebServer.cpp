#include "TestWebServer.h"

#include <QFile>
#include <QSslCertificate>
#include <QSslKey>
#include <QSslSocket>
#include <QString>
#include <QTest>

#include <algorithm>
#include <utility>

namespace nookle {

namespace {

[[nodiscard]] QByteArray contentOf(const char* name)
{
    QFile file(QStringLiteral(NOOKLE_TLS_DATA) + u'/' + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

[[nodiscard]] QTcpSocket* secured(QSslSocket* socket)
{
    socket->setPrivateKey(QSslKey(contentOf("server.key"), QSsl::Ec));
    socket->setLocalCertificate(QSslCertificate(contentOf("server.crt")));
    return socket;
}

} // namespace

TestWebServer::TestWebServer(Security security)
    : m_security(security)
{
    const QHostAddress other(QStringLiteral("127.0.0.2"));
    if (!listen(QHostAddress(QHostAddress::LocalHost)) || !m_door.listen(other, serverPort()))
        qFatal("no port to listen on");
}

QByteArray TestWebServer::authority()
{
    return NOOKLE_TLS_DATA "/authority.crt";
}

void TestWebServer::serve(const QByteArray& path, const QByteArray& answer)
{
    serve(path, [answer](QTcpSocket& connection) {
        connection.write(answer);
        connection.disconnectFromHost();
    });
}

void TestWebServer::serve(const QByteArray& path, Answer answer)
{
    m_answers.insert(path, std::move(answer));
}

void TestWebServer::servePage(const QByteArray& path, const QByteArray& page, const QByteArray& headers)
{
    serve(path,
          "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nContent-Length: " + QByteArray::number(page.size()) + "\r\n"
              + headers + "\r\n" + page);
}

void TestWebServer::serveRedirect(const QByteArray& path, const QByteArray& location, int status)
{
    serve(path,
          "HTTP/1.1 " + QByteArray::number(status) + " Moved\r\nContent-Length: 0\r\nLocation: " + location
              + "\r\n\r\n");
}

QUrl TestWebServer::url(const char* path, const char* host) const
{
    return QUrl(QString::fromLatin1(address(path, host)));
}

QByteArray TestWebServer::address(const char* path, const char* host) const
{
    const QByteArray scheme = m_security == Security::tls ? "https://" : "http://";
    return scheme + host + QByteArray(":") + QByteArray::number(serverPort()) + path;
}

int TestWebServer::requestsFor(const QByteArray& path) const
{
    const QByteArray line = "GET " + path + " HTTP";
    return int(std::count_if(m_requests.begin(), m_requests.end(),
                             [&](const QByteArray& head) { return head.startsWith(line); }));
}

int TestWebServer::openConnections() const
{
    return int(std::count_if(m_connections.begin(), m_connections.end(), [](const QPointer<QTcpSocket>& connection) {
        return connection && connection->state() == QAbstractSocket::ConnectedState;
    }));
}

void TestWebServer::incomingConnection(qintptr descriptor)
{
    ++m_acceptedConnections;
    const bool isSecure = m_security == Security::tls;
    auto* const socket = isSecure ? secured(new QSslSocket(this)) : new QTcpSocket(this);
    socket->setSocketDescriptor(descriptor);
    m_connections.append(socket);
    connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(*socket); });
    connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    if (isSecure)
        qobject_cast<QSslSocket*>(socket)->startServerEncryption();
}

void TestWebServer::read(QTcpSocket& connection)
{
    QByteArray& head = m_heads[&connection];
    head += connection.readAll();
    if (!head.endsWith("\r\n\r\n"))
        return;
    m_requests.append(std::exchange(head, {}));
    const QByteArray path = m_requests.constLast().split(' ').value(1);
    const auto answer = m_answers.constFind(path);
    if (answer != m_answers.constEnd()) {
        (*answer)(connection);
        return;
    }
    connection.write("HTTP/1.1 404 Not Found\r\nContent-Type: text/html\r\nConnection: close\r\n\r\n"
                     "<title>404 Not Found</title>");
    connection.disconnectFromHost();
}

} // namespace nookle
