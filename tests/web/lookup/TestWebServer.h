#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QPointer>
#include <QTcpServer>
#include <QUrl>

#include <functional>

class QTcpSocket;

namespace nookle {

/// A web server at 127.0.0.1 and at 127.0.0.2, which answers as a test tells it to.
class TestWebServer final : public QTcpServer {
    Q_OBJECT

public:
    enum class Security { plain, tls };
    /// Answers a request on its connection, which stays open unless the answer closes it.
    using Answer = std::function<void(QTcpSocket& connection)>;

    explicit TestWebServer(Security security = Security::plain);

    /// Answers requests for `path` with these bytes and closes the connection.
    void serve(const QByteArray& path, const QByteArray& answer);
    void serve(const QByteArray& path, Answer answer);
    void servePage(const QByteArray& path, const QByteArray& page, const QByteArray& headers = {});
    void serveRedirect(const QByteArray& path, const QByteArray& location, int status = 302);

    /// The address of `path` on this server under the name `host`.
    [[nodiscard]] QUrl url(const char* path, const char* host = "private.test") const;
    [[nodiscard]] QByteArray address(const char* path, const char* host = "private.test") const;

    /// The requests that came, each with all its header lines.
    [[nodiscard]] const QList<QByteArray>& requests() const { return m_requests; }
    /// How many of them were for `path`.
    [[nodiscard]] int requestsFor(const QByteArray& path) const;
    [[nodiscard]] int openConnections() const;
    [[nodiscard]] int acceptedConnections() const { return m_acceptedConnections; }

    /// The file with the certificate of the authority that the server's own is signed by.
    [[nodiscard]] static QByteArray authority();

protected:
    void incomingConnection(qintptr descriptor) override;

private:
    /// The same server at its other address.
    class Door final : public QTcpServer {
    public:
        explicit Door(TestWebServer& server)
            : m_server(server)
        {
        }

    protected:
        void incomingConnection(qintptr descriptor) override { m_server.incomingConnection(descriptor); }

    private:
        TestWebServer& m_server;
    };

    void read(QTcpSocket& connection);

    Security m_security;
    Door m_door{ *this };
    QHash<QByteArray, Answer> m_answers;
    QHash<QTcpSocket*, QByteArray> m_heads;
    QList<QPointer<QTcpSocket>> m_connections;
    QList<QByteArray> m_requests;
    int m_acceptedConnections = 0;
};

} // namespace nookle
