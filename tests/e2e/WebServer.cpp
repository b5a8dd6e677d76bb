#include "WebServer.h"

#include <QTcpSocket>

#include <memory>

namespace nookle::e2e {

namespace {

/// Whether the head, and as much of a body as it announces, has come.
[[nodiscard]] bool isComplete(const QByteArray& request)
{
    const qsizetype head = request.indexOf("\r\n\r\n");
    if (head < 0)
        return false;
    const QByteArray key("content-length:");
    const QByteArray lower = request.left(head).toLower();
    const qsizetype length = lower.indexOf(key);
    if (length < 0)
        return true;
    const qsizetype start = length + key.size();
    const qsizetype end = lower.indexOf('\r', start);
    return request.size() >= head + 4 + lower.mid(start, end < 0 ? -1 : end - start).trimmed().toLongLong();
}

} // namespace

WebServer::WebServer()
{
    connect(&m_server, &QTcpServer::newConnection, this, &WebServer::accept);
    m_server.listen(QHostAddress::LocalHost);
}

QString WebServer::url(const QString& path) const
{
    return QStringLiteral("http://127.0.0.1:%1%2").arg(m_server.serverPort()).arg(path);
}

void WebServer::serve(const QString& path, const QByteArray& type, const QByteArray& body)
{
    m_pages.insert(path, { type, body });
}

void WebServer::accept()
{
    while (QTcpSocket* socket = m_server.nextPendingConnection()) {
        const auto request = std::make_shared<QByteArray>();
        connect(socket, &QTcpSocket::readyRead, this, [this, socket, request] {
            *request += socket->readAll();
            if (isComplete(*request))
                answer(*socket, *request);
        });
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    }
}

void WebServer::answer(QTcpSocket& socket, const QByteArray& request)
{
    const QString path = QString::fromLatin1(request.split(' ').value(1));
    if (request.startsWith("POST"))
        m_posted.insert(path, request.mid(request.indexOf("\r\n\r\n") + 4));
    const auto page = m_pages.constFind(path);
    const bool isThere = page != m_pages.constEnd();
    const QByteArray body = isThere ? page->body : QByteArray();
    socket.write(isThere ? "HTTP/1.1 200 OK\r\n" : "HTTP/1.1 404 Not Found\r\n");
    socket.write("Content-Type: " + (isThere ? page->type : QByteArray("text/plain"))
                 + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\nConnection: close\r\n\r\n" + body);
    socket.disconnectFromHost();
}

} // namespace nookle::e2e
