#include "SingleInstance.h"

#include "DataFiles.h"
#include "FileUrl.h"
#include "LocalSocket.h"
#include "Log.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QFile>
#include <QThread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <optional>
#include <utility>

namespace nookle {

namespace {

inline constexpr std::chrono::seconds answerTimeout{ 5 };
inline constexpr int lockPatienceMilliseconds = 1000;
inline constexpr int lockIntervalMilliseconds = 20;

/// In bytes. More than any answer has.
inline constexpr qsizetype longestAnswer = 1 << 16;

// A request is one line: the word "show", or the word "add" and addresses, separated by spaces. So is an answer: the
// word "done", or the word "refused" and the reason.
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

[[nodiscard]] QByteArray refusedWord()
{
    return QByteArrayLiteral("refused ");
}

[[nodiscard]] QByteArray requestFor(const QStringList& uris)
{
    if (uris.isEmpty())
        return showWord() + '\n';
    return addWord() + ' ' + uris.join(QLatin1Char(' ')).toUtf8() + '\n';
}

/// A name that is the same for all paths to the same folder.
[[nodiscard]] QByteArray nameFor(const QUrl& dataFolder)
{
    std::error_code error;
    const std::filesystem::path given = standardizedPath(dataFolder).toStdString();
    const std::filesystem::path canonical = std::filesystem::weakly_canonical(given, error);
    const std::string& path = error ? given.native() : canonical.native();
    const QByteArray hash =
        QCryptographicHash::hash(QByteArray::fromStdString(path), QCryptographicHash::Sha256).toHex().left(32);
    return "org.nookle.Nookle-" + hash;
}

/// Opens a folder that only the user can access; none for any other folder.
[[nodiscard]] FileDescriptor openPrivateFolder(const QByteArray& path)
{
    FileDescriptor folder(path.isEmpty() ? -1 : ::open(path.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    struct stat status {};
    constexpr mode_t others = S_IRWXG | S_IRWXO;
    const bool isPrivate = folder.isOpen() && ::fstat(folder.get(), &status) == 0 && status.st_uid == ::geteuid()
        && (status.st_mode & others) == 0;
    return isPrivate ? std::move(folder) : FileDescriptor();
}

/// The answer of the other program, with the end of its line; empty when it does not answer in time. None if that
/// program has ended before its answer.
[[nodiscard]] std::optional<QByteArray> ask(const FileDescriptor& socket, const QStringList& uris)
{
    const auto failure = [] {
        const bool hasEnded = errno == EPIPE || errno == ECONNRESET;
        return hasEnded ? std::nullopt : std::optional(QByteArray());
    };
    if (!sendAll(socket, requestFor(uris)))
        return failure();
    QByteArray answer;
    const QDeadlineTimer patience(answerTimeout);
    while (!answer.endsWith('\n') && answer.size() < longestAnswer && !patience.hasExpired()) {
        std::array<char, 1024> part;
        const ssize_t size = ::recv(socket.get(), part.data(), part.size(), 0);
        if (size < 0 && errno == EINTR)
            continue;
        if (size == 0)
            return std::nullopt;
        if (size < 0)
            return failure();
        answer.append(part.data(), size);
    }
    return answer;
}

} // namespace

SingleInstance::SingleInstance(const QUrl& dataFolder, const QByteArray& runtimeFolder)
    : m_name(nameFor(dataFolder))
    , m_dataFolder(filePath(dataFolder))
    , m_folderLock(m_dataFolder)
    , m_runtimeFolder(openPrivateFolder(runtimeFolder))
    , m_server([this](const QByteArray& request) { return answer(request); })
{
}

QString SingleInstance::address() const
{
    // The folder's own path may be too long for a socket address.
    return QStringLiteral("/proc/self/fd/%1/%2").arg(m_runtimeFolder.get()).arg(QString::fromLatin1(m_name));
}

SingleInstance::Claim SingleInstance::claim(const QStringList& uris)
{
    // The other instance may still be starting, or ending right now, so try for a while.
    const QDeadlineTimer patience(lockPatienceMilliseconds);
    do {
        if (lock())
            return Claim::granted;
        const FileDescriptor socket =
            m_runtimeFolder.isOpen() ? connectToSocket(QFile::encodeName(address()), answerTimeout) : FileDescriptor();
        // Another user who could replace the runtime folder could also answer there.
        if (socket.isOpen() && !isSameUser(socket))
            return Claim::otherIsSilent;
        if (const auto answer = socket.isOpen() ? ask(socket, uris) : std::nullopt)
            return claimAnswered(*answer);
        QThread::msleep(lockIntervalMilliseconds);
    } while (!patience.hasExpired());
    return Claim::otherIsSilent;
}

SingleInstance::Claim SingleInstance::claimAnswered(const QByteArray& answer)
{
    if (answer == doneAnswer())
        return Claim::doneByOther;
    if (!answer.startsWith(refusedWord()) || !answer.endsWith('\n'))
        return Claim::otherIsSilent;
    m_refusal = QString::fromUtf8(answer.mid(refusedWord().size())).trimmed();
    return Claim::refusedByOther;
}

bool SingleInstance::lock()
{
    // Before the folder: a program that already runs may be about to lock that.
    if (m_runtimeFolder.isOpen() && !lockSession())
        return false;
    if (lockFolder() == FolderLock::State::heldByOther) {
        m_sessionLock = FileDescriptor();
        return false;
    }
    if (m_runtimeFolder.isOpen())
        listen();
    return true;
}

FolderLock::State SingleInstance::lockFolder()
{
    // Another user who can read the folder could lock it.
    keepPrivate(m_dataFolder);
    const FolderLock::State state = m_folderLock.take();
    if (state == FolderLock::State::impossible && !std::exchange(m_hasToldOfLock, true))
        logLine(QStringLiteral("the data folder cannot be locked: ") + m_folderLock.error());
    return state;
}

// A second lock, because the data folder may not exist yet, and a socket file does not show whether its program is
// alive.
bool SingleInstance::lockSession()
{
    const QByteArray file = m_name + ".lock";
    FileDescriptor lock(::openat(m_runtimeFolder.get(), file.constData(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC,
                                 S_IRUSR | S_IWUSR));
    if (lock.isOpen() && ::flock(lock.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        return false;
    m_sessionLock = std::move(lock);
    return true;
}

void SingleInstance::listen()
{
    // This instance holds the lock, so an existing socket file belongs to a program that has ended.
    ::unlinkat(m_runtimeFolder.get(), m_name.constData(), 0);
    if (!m_server.listen(QFile::encodeName(address())))
        logLine(QStringLiteral("a second start cannot be answered: ") + qt_error_string(errno));
}

std::optional<Failure> SingleInstance::claimFolder()
{
    if (!m_isFolderLost && lockFolder() == FolderLock::State::heldByOther) {
        m_isFolderLost = true;
        if (onFolderLost)
            onFolderLost();
    }
    if (!m_isFolderLost)
        return {};
    return translatedFailure(QT_TRANSLATE_NOOP("nookle::Failure", "another program holds the shelf"));
}

QByteArray SingleInstance::answer(const QByteArray& request) const
{
    if (request == showWord()) {
        if (onShowRequested)
            onShowRequested();
        return doneAnswer();
    }
    const QStringList words = QString::fromUtf8(request).split(QLatin1Char(' '));
    if (words.size() < 2 || words.first().toUtf8() != addWord())
        return {};
    // At its very end this program adds nothing more.
    if (!onAddRequested)
        return {};
    const auto failure = onAddRequested(words.mid(1));
    return failure ? refusedWord() + failure->shown().simplified().toUtf8() + '\n' : doneAnswer();
}

} // namespace nookle
