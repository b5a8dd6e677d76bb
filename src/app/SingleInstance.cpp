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

/// More than a command line can hold.
inline constexpr qint64 longestRequest = 8 << 20;

// A request is a line: the word, or the word and addresses, with a space before each.
[[nodiscard]] QByteArray showWord()
{
    return QByteArrayLiteral("show");
}

[[nodiscard]] QByteArray addWord()
{
    return QByteArrayLiteral("add");
}

[[nodiscard]] QByteArray doneAnswer()
{
    return QByteArrayLiteral("done\n");
}

[[nodiscard]] QByteArray requestFor(const QStringList& uris)
{
    if (uris.isEmpty())
        return showWord() + '\n';
    return addWord() + ' ' + uris.join(QLatin1Char(' ')).toUtf8() + '\n';
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

SingleInstance::Claim SingleInstance::claim(const QStringList& uris)
{
    if (m_server.listen(m_name))
        return Claim::granted;
    QLocalSocket socket;
    socket.setSocketOptions(QLocalSocket::AbstractNamespaceOption);
    socket.connectToServer(m_name);
    if (!socket.waitForConnected(answerTimeoutMilliseconds) || !isSameUser(socket))
        return Claim::otherIsSilent;
    socket.write(requestFor(uris));
    QByteArray answer;
    while (answer != doneAnswer()) {
        if (!socket.waitForReadyRead(answerTimeoutMilliseconds))
            return Claim::otherIsSilent;
        answer += socket.readAll();
    }
    return Claim::doneByOther;
}

void SingleInstance::answerRequests()
{
    while (QLocalSocket* socket = m_server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        if (!isSameUser(*socket)) {
            socket->abort();
            continue;
        }
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { answer(*socket); });
    }
}

void SingleInstance::answer(QLocalSocket& socket)
{
    if (!socket.canReadLine()) {
        if (socket.bytesAvailable() > longestRequest)
            socket.abort();
        return;
    }
    if (!fulfil(socket.readLine().chopped(1)))
        return;
    socket.write(doneAnswer());
    socket.disconnectFromServer();
}

bool SingleInstance::fulfil(const QByteArray& request) const
{
    if (request == showWord()) {
        if (onShowRequested)
            onShowRequested();
        return true;
    }
    const QStringList words = QString::fromUtf8(request).split(QLatin1Char(' '));
    if (words.size() < 2 || words.first().toUtf8() != addWord())
        return false;
    if (onAddRequested)
        onAddRequested(words.mid(1));
    return true;
}

} // namespace nookle
