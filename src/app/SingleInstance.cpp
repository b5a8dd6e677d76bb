#include "SingleInstance.h"

#include "FileUrl.h"

#include <QCryptographicHash>
#include <QLocalSocket>

#include <filesystem>

#include <sys/socket.h>
#include <unistd.h>

namespace nookle {

namespace {

inline constexpr int answerTimeoutMilliseconds = 5000;

[[nodiscard]] QByteArray showRequest()
{
    return QByteArrayLiteral("show\n");
}

[[nodiscard]] QByteArray shownAnswer()
{
    return QByteArrayLiteral("shown\n");
}

/// One name for each user and folder, by whatever path the folder is reached.
[[nodiscard]] QString addressName(const QUrl& dataFolder)
{
    std::error_code error;
    const std::filesystem::path given = standardizedPath(dataFolder).toStdString();
    const std::filesystem::path canonical = std::filesystem::weakly_canonical(given, error);
    const std::string& path = error ? given.native() : canonical.native();
    const QByteArray hash =
        QCryptographicHash::hash(QByteArray::fromStdString(path), QCryptographicHash::Sha256).toHex().left(32);
    return QStringLiteral("org.nookle.Nookle-%1-%2").arg(getuid()).arg(QLatin1String(hash));
}

/// The address can be reached by every user of the machine.
[[nodiscard]] bool isSameUser(const QLocalSocket& socket)
{
    ucred credentials{};
    socklen_t size = sizeof(credentials);
    const int descriptor = static_cast<int>(socket.socketDescriptor());
    return getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &credentials, &size) == 0 && credentials.uid == getuid();
}

} // namespace

SingleInstance::SingleInstance(const QUrl& dataFolder)
    : m_name(addressName(dataFolder))
{
    m_server.setSocketOptions(QLocalServer::AbstractNamespaceOption);
    connect(&m_server, &QLocalServer::newConnection, this, &SingleInstance::answerRequests);
}

SingleInstance::Claim SingleInstance::claim()
{
    if (m_server.listen(m_name))
        return Claim::granted;
    QLocalSocket socket;
    socket.setSocketOptions(QLocalSocket::AbstractNamespaceOption);
    socket.connectToServer(m_name);
    if (!socket.waitForConnected(answerTimeoutMilliseconds) || !isSameUser(socket))
        return Claim::otherIsSilent;
    socket.write(showRequest());
    QByteArray answer;
    while (answer != shownAnswer()) {
        if (!socket.waitForReadyRead(answerTimeoutMilliseconds))
            return Claim::otherIsSilent;
        answer += socket.readAll();
    }
    return Claim::shownByOther;
}

void SingleInstance::answerRequests()
{
    while (QLocalSocket* socket = m_server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        if (!isSameUser(*socket)) {
            socket->abort();
            continue;
        }
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
            if (!socket->canReadLine() || socket->readLine() != showRequest())
                return;
            if (onShowRequested)
                onShowRequested();
            socket->write(shownAnswer());
            socket->disconnectFromServer();
        });
    }
}

} // namespace nookle
