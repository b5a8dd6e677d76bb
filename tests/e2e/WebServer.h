#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QTcpServer>

namespace nookle::e2e {

/// A web site of a test's own, on a free port of this machine.
class WebServer : public QObject {
    Q_OBJECT

public:
    WebServer();

    [[nodiscard]] bool isRunning() const { return m_server.isListening(); }

    /// The address of a path, which begins with a slash.
    [[nodiscard]] QString url(const QString& path) const;

    /// Answers requests for `path` from now on.
    void serve(const QString& path, const QByteArray& type, const QByteArray& body);

    /// What was sent to `path` last.
    [[nodiscard]] QByteArray posted(const QString& path) const { return m_posted.value(path); }
    void forget(const QString& path) { m_posted.remove(path); }

private:
    struct Page {
        QByteArray type;
        QByteArray body;
    };

    void accept();
    void answer(QTcpSocket& socket, const QByteArray& request);

    QTcpServer m_server;
    QHash<QString, Page> m_pages;
    QHash<QString, QByteArray> m_posted;
};

} // namespace nookle::e2e
